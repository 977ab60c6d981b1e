; The installer, for one person, without an administrator. VERSION, FILES (the folder of what is installed) and OUTPUT
; come from the command line. The default target would be a program of 32 bits.
Target amd64-unicode
Unicode true
!include MUI2.nsh
!include FileFunc.nsh

!define KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Velmora"
!define PROGID "Velmora.Tabs"
!define APPLICATION "Software\Classes\Applications\velmora.exe"

Name "Velmora ${VERSION}"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Velmora"
InstallDirRegKey HKCU "${KEY}" "InstallLocation"
RequestExecutionLevel user
SetCompressor /SOLID lzma
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Velmora"
VIAddVersionKey "FileDescription" "Velmora installer"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "The Velmora developers"

!define MUI_ICON "velmora.ico"
!define MUI_UNICON "velmora.ico"
!insertmacro MUI_PAGE_LICENSE "${FILES}\LICENSE.txt"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN "$INSTDIR\velmora.exe"
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; A running program holds its file: an installation beside it would be half old and half new.
!macro StopWhileRunning UN
Function ${UN}StopWhileRunning
    again:
    IfFileExists "$INSTDIR\velmora.exe" 0 free
    ClearErrors
    FileOpen $0 "$INSTDIR\velmora.exe" a
    IfErrors 0 close
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Velmora is running. Please close it first." /SD IDCANCEL IDRETRY again
    Abort
    close:
    FileClose $0
    free:
FunctionEnd
!macroend
!insertmacro StopWhileRunning ""
!insertmacro StopWhileRunning "un."

!macro Offer ENDING
    WriteRegStr HKCU "${APPLICATION}\SupportedTypes" "${ENDING}" ""
!macroend

Section
    Call StopWhileRunning
    RMDir /r "$INSTDIR\licences" ; of what an older version held
    SetOutPath "$INSTDIR"
    File /r "${FILES}\*"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortcut "$SMPROGRAMS\Velmora.lnk" "$INSTDIR\velmora.exe"

    ; Among the programs of "Open with". What opens such files by a double click stays what it is.
    WriteRegStr HKCU "Software\Classes\${PROGID}" "" "Velmora tab document"
    WriteRegStr HKCU "Software\Classes\${PROGID}\DefaultIcon" "" "$INSTDIR\velmora.exe,0"
    WriteRegStr HKCU "Software\Classes\${PROGID}\shell\open\command" "" '"$INSTDIR\velmora.exe" "%1"'
    WriteRegStr HKCU "Software\Classes\.csv\OpenWithProgids" "${PROGID}" ""
    WriteRegStr HKCU "${APPLICATION}\shell\open\command" "" '"$INSTDIR\velmora.exe" "%1"'
    ; Workbooks are imported: the program is offered for them too, but they are no tab documents.
    !insertmacro Offer ".csv"
    !insertmacro Offer ".xls"
    !insertmacro Offer ".xlt"
    !insertmacro Offer ".xlsx"
    !insertmacro Offer ".xltx"
    !insertmacro Offer ".xlsm"
    !insertmacro Offer ".xltm"
    !insertmacro Offer ".ods"
    !insertmacro Offer ".ots"

    WriteRegStr HKCU "${KEY}" "DisplayName" "Velmora"
    WriteRegStr HKCU "${KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${KEY}" "DisplayIcon" "$INSTDIR\velmora.exe"
    WriteRegStr HKCU "${KEY}" "Publisher" "The Velmora developers"
    WriteRegStr HKCU "${KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${KEY}" "NoModify" 1
    WriteRegDWORD HKCU "${KEY}" "NoRepair" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD HKCU "${KEY}" "EstimatedSize" $0
SectionEnd

; What the installer laid out, and nothing else: settings, documents and pictures of the person stay where they are.
Section Uninstall
    Call un.StopWhileRunning
    Delete "$INSTDIR\velmora.exe"
    Delete "$INSTDIR\velmora-batch.exe"
    Delete "$INSTDIR\LICENSE.txt"
    Delete "$INSTDIR\README.txt"
    RMDir /r "$INSTDIR\licences"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\Velmora.lnk"
    DeleteRegKey HKCU "Software\Classes\${PROGID}"
    DeleteRegValue HKCU "Software\Classes\.csv\OpenWithProgids" "${PROGID}"
    DeleteRegKey /ifempty HKCU "Software\Classes\.csv\OpenWithProgids"
    DeleteRegKey /ifempty HKCU "Software\Classes\.csv"
    DeleteRegKey HKCU "${APPLICATION}"
    DeleteRegKey HKCU "${KEY}"
SectionEnd
