# Sourced by ./package --windows and ./test --windows: the cross-compiler, Qt for Windows, and Wine. After tools/setup.sh.
windows_packages="$build_packages g++-mingw-w64-x86-64-posix icoutils librsvg2-bin"
windows_qt_packages="dpkg-dev tcl xz-utils"
windows_package_packages="$windows_packages $windows_qt_packages nsis"
windows_test_packages="$windows_packages nsis libgtest-dev googletest wine64 fonts-wine xvfb imagemagick xdotool poppler-utils"

# windows_build NAME ROOT OPTION...: configures once and builds in build/windows/NAME.
windows_build() {
  windows_name=$1
  windows_root=$2
  shift 2
  [ -f "build/windows/$windows_name/build.ninja" ] ||
    cmake -S . -B "build/windows/$windows_name" -G Ninja \
      -DCMAKE_TOOLCHAIN_FILE="$PWD/packaging/windows/toolchain.cmake" -DMR4500X_WINDOWS_ROOT="$windows_root" \
      -DMR4500X_WERROR=ON -DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=0 "$@" >/dev/null
  cmake --build "build/windows/$windows_name"
}

# The layers that need no Qt, and their tests.
windows_build_parts() {
  packaging/windows/prepare-root "$PWD/build/windows/root-parts"
  windows_build parts "$PWD/build/windows/root-parts" -DMR4500X_QT=OFF -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG=-O0
}

# windows_build_programs QT-ARCHIVE
windows_build_programs() {
  packaging/windows/prepare-root "$PWD/build/windows/root" "$1"
  windows_build release "$PWD/build/windows/root" -DBUILD_TESTING=OFF -DCMAKE_BUILD_TYPE=Release \
    -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake
}

windows_version() {
  sed -n 's/^project(MR4500X VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt
}

# windows_pack FILES VERSION INSTALLER: makes an installer of the files in a folder.
windows_pack() {
  # The uninstaller removes each file and then the folders that are empty.
  {
    # shellcheck disable=SC2016 # the installer's variable
    (cd "$1" && find . -type f | sed 's#^\./##; s#/#\\#g; s#.*#Delete "$INSTDIR\\&"#')
    # shellcheck disable=SC2016
    (cd "$1" && find . -mindepth 1 -depth -type d | sed 's#^\./##; s#/#\\#g; s#.*#RMDir "$INSTDIR\\&"#')
  } >"$1-delete.nsh"
  makensis -V2 -DVERSION="$2" -DNUMBERS="$2.0" -DFILES="$1" -DOUTPUT="$3" \
    -DICON="$PWD/build/windows/release/src/app/MR4500X-resources/program.ico" packaging/windows/installer.nsi >&2
}

# Packs what windows_build_programs has built; the installer lies in build/windows.
windows_make_installer() {
  files=$PWD/build/windows/files
  rm -rf "$files"
  cmake --install build/windows/release --strip --prefix "$files" >/dev/null
  find "$files" -name '*.dll' -exec x86_64-w64-mingw32-strip {} +
  version=$(windows_version)
  installer=$PWD/build/windows/mr4500x-$version-setup.exe
  windows_pack "$files" "$version" "$installer"
  echo "$installer"
}

wine=/usr/lib/wine/wine64

# windows_begin_wine FOLDER: an empty Wine of its own there, for this script's life.
windows_begin_wine() {
  export WINEPREFIX="$1" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
  rm -rf "$WINEPREFIX"
  mkdir -p "$WINEPREFIX"
  # It would keep the streams of whoever starts it.
  /usr/lib/wine/wineserver64 -p30 </dev/null >/dev/null 2>&1
  $wine wineboot -i </dev/null >/dev/null 2>&1
}
windows_end_wine() {
  /usr/lib/wine/wineserver64 -k >/dev/null 2>&1 || true
}
