; The installer: for the user alone, without administrator rights, or for all users. Silent with /S; /AllUsers or
; /CurrentUser chooses, /D=FOLDER comes last. VERSION, NUMBERS (1.0.0.0), FILES (what to pack) and OUTPUT are defined by
; the caller.
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true

!define NAME "MR4500X Programming Software"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\MR4500X"
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_DEFAULT_CURRENTUSER
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_INSTDIR "MR4500X"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "Software\MR4500X"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "Folder"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "Software\MR4500X"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "Folder"
!include MultiUser.nsh
!include MUI2.nsh
!include x64.nsh
!include FileFunc.nsh

Name "${NAME}"
OutFile "${OUTPUT}"
BrandingText "${NAME} ${VERSION}"
VIProductVersion "${NUMBERS}"
VIAddVersionKey ProductName "${NAME}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "${NAME}: installer"
VIAddVersionKey CompanyName "VTR"
VIAddVersionKey LegalCopyright "2026 VTR"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_TEXT "Run ${NAME}"
!define MUI_FINISHPAGE_RUN_FUNCTION RunAsUser
!insertmacro MUI_PAGE_WELCOME
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

Function .onInit
  SetRegView 64
  !insertmacro MULTIUSER_INIT
FunctionEnd

; The desktop starts the program with the user's rights, even if the installer has an administrator's.
Function RunAsUser
  Exec '"$WINDIR\explorer.exe" "$INSTDIR\MR4500X.exe"'
FunctionEnd

Function un.onInit
  SetRegView 64
  !insertmacro MULTIUSER_UNINIT
FunctionEnd

; A data file type, opened by a double-click.
!macro FileType extension
  WriteRegStr SHCTX "Software\Classes\.${extension}" "" "MR4500X.${extension}"
  WriteRegStr SHCTX "Software\Classes\MR4500X.${extension}" "" "LR7200 configuration"
  WriteRegStr SHCTX "Software\Classes\MR4500X.${extension}\DefaultIcon" "" "$INSTDIR\MR4500X.exe,0"
  WriteRegStr SHCTX "Software\Classes\MR4500X.${extension}\shell\open\command" "" '"$INSTDIR\MR4500X.exe" "%1"'
!macroend
!macro NoFileType extension
  ReadRegStr $0 SHCTX "Software\Classes\.${extension}" ""
  StrCmp $0 "MR4500X.${extension}" 0 +2
  DeleteRegKey SHCTX "Software\Classes\.${extension}"
  DeleteRegKey SHCTX "Software\Classes\MR4500X.${extension}"
!macroend

; A program that runs can't be opened for writing. Nothing has been removed by then.
!macro StopIfRunning
  FindFirst $0 $1 "$INSTDIR\*.exe"
  ${DoUntil} $1 == ""
    ${If} $1 != "uninstall.exe"
      ClearErrors
      FileOpen $2 "$INSTDIR\$1" a
      ${If} ${Errors}
        MessageBox MB_OK|MB_ICONSTOP "$1 is running. Close it, and try again." /SD IDOK
        SetErrorLevel 1
        Quit
      ${EndIf}
      FileClose $2
    ${EndIf}
    FindNext $0 $1
  ${Loop}
  FindClose $0
!macroend

Section
  ; An older version goes first, by its own uninstaller, so that nothing of it stays.
  ${If} ${FileExists} "$INSTDIR\uninstall.exe"
    !insertmacro StopIfRunning
    ExecWait '"$INSTDIR\uninstall.exe" /S /$MultiUser.InstallMode _?=$INSTDIR'
  ${EndIf}
  SetOutPath "$INSTDIR"
  ClearErrors
  File /r "${FILES}\*"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONSTOP "The files can't be written to $INSTDIR." /SD IDOK
    SetErrorLevel 1
    Quit
  ${EndIf}
  CreateDirectory "$SMPROGRAMS\MR4500X"
  CreateShortcut "$SMPROGRAMS\MR4500X\${NAME}.lnk" "$INSTDIR\MR4500X.exe"
  CreateShortcut "$SMPROGRAMS\MR4500X\MR4500X Fleet.lnk" "$INSTDIR\MR4500X-fleet.exe"
  CreateShortcut "$SMPROGRAMS\MR4500X\Manual.lnk" "$INSTDIR\manual\contents.html"
  !insertmacro FileType K4X
  !insertmacro FileType K4Y
  WriteRegStr SHCTX "Software\MR4500X" "Folder" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "${NAME}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\MR4500X.exe"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "VTR"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode /S'
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" $0
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)' ; file types have changed
SectionEnd

; Only what the installer has put there goes. The user's settings and files stay.
Section Uninstall
  !insertmacro StopIfRunning
  !include "${FILES}-delete.nsh"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  RMDir /r "$SMPROGRAMS\MR4500X"
  !insertmacro NoFileType K4X
  !insertmacro NoFileType K4Y
  DeleteRegValue SHCTX "Software\MR4500X" "Folder" ; the user's settings in this key stay
  DeleteRegKey /ifempty SHCTX "Software\MR4500X"
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
SectionEnd
