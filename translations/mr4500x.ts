<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" sourcelanguage="en">
<context>
    <name>QFileDialog</name>
    <message>
        <source>%1
Directory not found.
Please verify the correct directory name was given.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x</name>
    <message>
        <source>Data hasn&apos;t been saved. Do you want to continue?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save As</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Data Files(*.K4X)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Data Files(*.K4Y)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Data files(*.K4X)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Data files(*.K4Y)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>LR7200 Radio Series</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>2003 Version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COM %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CH No.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rx Freq  (MHz)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Step (kHz)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rx CTC/DCS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rx  SelCall</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Combo_ Signaling</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tail Cut</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tx Freq  (MHz)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tx CTC/DCS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tx  SelCall</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>High Tx Power</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PTT ID Enable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Band With</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Group Call</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frequency Invalid!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalide 5 Tone!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The number of 5 Tone must be five!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Emergency ANI Invalid!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connect ID Invalid!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disconnect ID Invalid!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The lower limit value must be less than the upper limit value!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The upper limit value must be more than the lower limit value!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The lower limit value is invalid!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The upper limit value is invalid!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The lower limit value of frequency band is invalid!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frequency Band Change</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change the lower limit value, all data will be initiated. Do you want to continue?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Auot Reset Time Invalid!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Auto Reset Time Invalid!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TTS Frequency Invalid!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Short A</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Long A</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Short B</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Long B</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Short C</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Long C</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scan Mode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TO Scan Delay</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Priority CH</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Look Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Restore Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Revert CH</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tone A Freq(Hz)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tone A Dur.(s)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tone B Freq(Hz)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tone B Dur.(s)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gap Time(s)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Group Call Dur.(s)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TTS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>5 Tone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OFF</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ON</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Signal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Carrier</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connect ID</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disconnect ID</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Both</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CO</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TO</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current CH</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last Stop CH</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unassigned</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nuisance Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Power Select</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Talk Around</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reverse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Call</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selcall</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>GroupCall</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reverse </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Monitor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Emergency Alert</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel Emergency Alert</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Data Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Data occur error in the Radio, please re-set.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Talk Around Or Reverse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Talk Around or Reverse can&apos;t be present at the same time.If one key has been set to Talk Around or Reverse,any other key must not be set to Talk Around or Reverse.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It has been reached to the Top Size of the Input Text.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Version File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This software version isn&apos;t applied to the radio, please use new software.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Later Version of this File!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Error Version of this File!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open File Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File has been damaged!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save File Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File hasn&apos;t been saved. Please redo!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File hasn&apos;t been saved. Please try again!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The help file %1 is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The help file %1 is damaged or can&apos;t be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The help file %1 can&apos;t be opened: there is no room for a temporary file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read Information Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read information error, please try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Information Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Data that has been read can&apos;t correctly display!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writing information is interrupted, please try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write Information Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writing information error, please try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read Emedded Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading embedded information from the radio ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read Information Completely</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read information is complete. Press OK button to continue ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write Embedded Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write embedded information to radio ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write Information Completely</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write information completely. Press OK to continue.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 port don&apos;t respond, please check your connection!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Communication port error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The radio model is wrong. The connected radio doesn&apos;t belong to LR7200 Series. Can&apos;t continue!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read Interrupt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading is interrupted, please retry Read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read data error, please retry Read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Data read can&apos;t display correctly. Please confirm.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading data from the radio ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read Complete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read data is complete. Press OK button to continue ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The port failed while it was being set up.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read Completely - MR4500X Programming Software</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write Completely - MR4500X Programming Software</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read Information Completely - MR4500X Programming Software</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write Information Completely - MR4500X Programming Software</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write Interrupt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writing is interrupted, please retry Write.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writing data error, please retry Write.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frequency Band</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The frequency band is different from the destination radio model.Are you still continue?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write data to the radio ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write Complete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write data is complete. Press OK button to continue ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The help viewer %1 can&apos;t be started: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The printer does not take a further page.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no printer. &quot;Printer...&quot; offers to print to a PDF file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The PDF file %1 can&apos;t be started.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The PDF file %1 can&apos;t be written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The printer %1 can&apos;t be started.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The printer %1 did not take the job.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel Settings and Global Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Embedded Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select items you want to print.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::BandFrame</name>
    <message>
        <source>Frequency Band</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frequency band, lower limit in MHz</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frequency band, upper limit in MHz</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>LR7200 Series</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>MHz</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::ChannelFrame</name>
    <message>
        <source>Channel Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No CH</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Tx</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No CH: channel %1 is not in use</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Tx: channel %1 cannot transmit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>transmit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>receive</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel %1, %2 frequency in MHz</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel %1, %2 CTCSS or DCS tone</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::ChannelGrid</name>
    <message>
        <source>Channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> CH%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not used</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::EditorPanel</name>
    <message>
        <source>No field</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::FindBar</name>
    <message>
        <source>&amp;Find in page:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This page does not hold the text.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::FiveToneFrame</name>
    <message>
        <source>5 Tone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>5 Tone Standards</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Standards</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::FrmAbout</name>
    <message>
        <source>Qt %1 and its modules, Qt Help among them: LGPL version 3
CLI11, in mr4500x-cli: BSD 3-Clause
nlohmann-json, in mr4500x-cli: MIT
The licences&apos; texts come with the system&apos;s packages, in /usr/share/doc</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Licences</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The maker&apos;s page: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1  For Windows 98/NT/2000</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::FrmEmbed</name>
    <message>
        <source>Font...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Embedded Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last Programming Time</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::FrmMain</name>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>E&amp;Xit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Option</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Channels Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Channel Windows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Function Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Function Windows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> &amp;Write</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Embedded Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Embedded &amp;Info...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Read Embedded Info</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> &amp;Write Embedded Info</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ID Number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Comm-Port</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Port...     </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COM Port</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Index...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;About...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>new</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::FrmPort</name>
    <message>
        <source>COM%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No device stands for this port</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Port</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Communication Port</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::FrmPrint</name>
    <message>
        <source>Print Output</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>C&amp;lear All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Printer...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::GlobalSettingsFrame</name>
    <message>
        <source>Global Radio Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Battery Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Beep Tone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tx TOT</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Busy CH Lock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Squelch Level</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Compander</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>VOX Sensivity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Beep Enable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Emerge ANI </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>PTT ID</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Connect ID</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disconnect ID</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Digit Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inter Digit Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Emergency ANI</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::GroupDialog</name>
    <message>
        <source>Group Call</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OFF</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tone A</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tone B</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>First 1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>First 2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>First 3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>First 4</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TTS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>5 Tone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Two-tone group call (TTS)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>5 tone group call</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tone of the group call</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Digits of the group call</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::HelpWindow</name>
    <message>
        <source>MR4500X Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Contents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Index</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Search</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Forward</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Home</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find in page</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::IndexTab</name>
    <message>
        <source>Keywords</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Keyword:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Topics</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Topics with the keyword &quot;%1&quot;:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::KeyFrame</name>
    <message>
        <source>Key Program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Key %1 press</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Key %1 press, fixed</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::PageView</name>
    <message>
        <source>Help page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;p&gt;This page can&apos;t be read. The help file may be damaged.&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::RecordFrame</name>
    <message>
        <source>Radio Record</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ID Number: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version of Firmware:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::ResetTimeFrame</name>
    <message>
        <source>Auto Reset Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Auto Reset Time in seconds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Auto Reset Time up or down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OFF</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Auto Reset Time OFF</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Auto Reset Time(s)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::ScanFrame</name>
    <message>
        <source>Scan Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Signal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scan Signal</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::SearchTab</name>
    <message>
        <source>Pages that hold all the words. Put a phrase in double quotes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pages found</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Search for:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>S&amp;earch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No page holds that.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pages found: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::SelectCallFrame</name>
    <message>
        <source>Select Call</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::TtsFrame</name>
    <message>
        <source>TTS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TTS frequency in Hz</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TTS time in seconds</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::TtsGrid</name>
    <message>
        <source>TTS table, entries 1 to 8</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::TuneFrame</name>
    <message>
        <source>Manual Tune Enable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Manual Tune</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>mr4500x::TwoFiveDialog</name>
    <message>
        <source>&amp;OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TTS/5 Tone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OFF</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TTS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>5 Tone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No selective call</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Two-tone selective call (TTS)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>5 tone selective call</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Entry of the TTS table</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>5 tone code, five digits</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
