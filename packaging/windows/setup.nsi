; The setup for one user: no administrator, the suite folder under the user's own programs.
; Defines: VERSIONE, CARTELLA (what is packed), USCITA (the setup), ICONE (the folder of the icons),
; TOGLI (the list of what is packed).
; What a player makes of the folder stays: nothing of his is written over, nothing of his is removed.
Target amd64-unicode
Unicode true
SetCompressor /SOLID lzma
; Wide enough to see that the programs share most of what they hold.
SetCompressorDictSize 64
!include MUI2.nsh
!include FileFunc.nsh

!define CHIAVE "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tabellino"
!define CLASSI "Software\Classes"

Name "Tabellino"
OutFile "${USCITA}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\Tabellino"
InstallDirRegKey HKCU "${CHIAVE}" "InstallLocation"
ManifestDPIAware true
BrandingText "Tabellino ${VERSIONE}"
VIProductVersion "${VERSIONE}.0"
VIAddVersionKey ProductName "Tabellino"
VIAddVersionKey FileDescription "Installazione di Tabellino"
VIAddVersionKey FileVersion "${VERSIONE}"
VIAddVersionKey ProductVersion "${VERSIONE}"
VIAddVersionKey LegalCopyright "The Tabellino developers"

!define MUI_ICON "${ICONE}/tabellino.ico"
!define MUI_UNICON "${ICONE}/tabellino.ico"
!define MUI_FINISHPAGE_RUN "$INSTDIR\cruciverba\tabellino.exe"
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\LEGGIMI.txt"
!define MUI_FINISHPAGE_SHOWREADME_NOTCHECKED
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "${CARTELLA}/LICENZA.txt"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "Italian"

; A program that runs can be neither replaced nor removed: asked for before anything is touched. Where
; nobody is there to answer the exit code tells, 2 as of all that ends so.
!macro CHIUSO PROGRAMMA
  IfFileExists "$INSTDIR\${PROGRAMMA}" 0 +7
  ClearErrors
  FileOpen $0 "$INSTDIR\${PROGRAMMA}" a
  IfErrors 0 +3
  MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
    "Tabellino è in uso ($INSTDIR\${PROGRAMMA}).$\r$\nChiudetelo e riprovate." /SD IDCANCEL IDRETRY -3
  Abort "Tabellino è in uso."
  FileClose $0
!macroend
!macro CHIUSI
  !insertmacro CHIUSO "cruciverba\tabellino.exe"
  !insertmacro CHIUSO "cruciverba\archivio.exe"
  !insertmacro CHIUSO "cruciverba\ridotti.exe"
  !insertmacro CHIUSO "cruciverba\sistema.exe"
  !insertmacro CHIUSO "cruciverba\leggi_mdb.exe"
  !insertmacro CHIUSO "stampa.exe"
  !insertmacro CHIUSO "guida.exe"
!macroend

; A name and an icon, and no way to open: the program takes no file from its command line.
!macro TIPO ESTENSIONE NOME ICONA
  WriteRegStr HKCU "${CLASSI}\.${ESTENSIONE}" "" "Tabellino.${ESTENSIONE}"
  WriteRegStr HKCU "${CLASSI}\Tabellino.${ESTENSIONE}" "" "${NOME}"
  WriteRegStr HKCU "${CLASSI}\Tabellino.${ESTENSIONE}\DefaultIcon" "" "$INSTDIR\cruciverba\tabellino.exe,${ICONA}"
!macroend
!macro SENZA_TIPO ESTENSIONE
  ReadRegStr $0 HKCU "${CLASSI}\.${ESTENSIONE}" ""
  StrCmp $0 "Tabellino.${ESTENSIONE}" 0 +2
  DeleteRegKey HKCU "${CLASSI}\.${ESTENSIONE}"
  DeleteRegKey HKCU "${CLASSI}\Tabellino.${ESTENSIONE}"
!macroend

Section
  !insertmacro CHIUSI
  SetOverwrite on
  SetOutPath "$INSTDIR"
  File "${CARTELLA}/*.exe" "${CARTELLA}/*.txt" "${CARTELLA}/*.html"
  SetOutPath "$INSTDIR\licenze"
  File "${CARTELLA}/licenze/*"
  SetOutPath "$INSTDIR\ridotti"
  File "${CARTELLA}/ridotti/*"
  SetOutPath "$INSTDIR\skin"
  File "${CARTELLA}/skin/*.skn"
  SetOutPath "$INSTDIR\cruciverba"
  File "${CARTELLA}/cruciverba/*.exe"
  ; What the player may have made his own by now.
  SetOverwrite off
  File "${CARTELLA}/cruciverba/*.sen" "${CARTELLA}/cruciverba/*.col"
  File "${CARTELLA}/cruciverba/*.sel" "${CARTELLA}/cruciverba/*.lot"
  SetOutPath "$INSTDIR\skin"
  File "${CARTELLA}/skin/skn.dat"
  SetOutPath "$INSTDIR\archivio"
  File "${CARTELLA}/archivio/drawit.sqlite"
  SetOverwrite on

  SetOutPath "$INSTDIR\cruciverba"
  CreateDirectory "$SMPROGRAMS\Tabellino"
  CreateShortcut "$SMPROGRAMS\Tabellino\Tabellino.lnk" "$INSTDIR\cruciverba\tabellino.exe"
  CreateShortcut "$SMPROGRAMS\Tabellino\Archivio Estrazioni.lnk" "$INSTDIR\cruciverba\archivio.exe"
  CreateShortcut "$SMPROGRAMS\Tabellino\Guida.lnk" "$INSTDIR\guida.exe"
  CreateShortcut "$SMPROGRAMS\Tabellino\Rimuovi Tabellino.lnk" "$INSTDIR\rimuovi.exe"
  !insertmacro TIPO sen "Sistema SuperEnalotto" 1
  !insertmacro TIPO sel "Sistema Lotto" 2
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'

  WriteUninstaller "$INSTDIR\rimuovi.exe"
  WriteRegStr HKCU "${CHIAVE}" "DisplayName" "Tabellino"
  WriteRegStr HKCU "${CHIAVE}" "DisplayVersion" "${VERSIONE}"
  WriteRegStr HKCU "${CHIAVE}" "DisplayIcon" "$INSTDIR\cruciverba\tabellino.exe"
  WriteRegStr HKCU "${CHIAVE}" "Publisher" "The Tabellino developers"
  WriteRegStr HKCU "${CHIAVE}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${CHIAVE}" "UninstallString" '"$INSTDIR\rimuovi.exe"'
  WriteRegStr HKCU "${CHIAVE}" "QuietUninstallString" '"$INSTDIR\rimuovi.exe" /S'
  WriteRegDWORD HKCU "${CHIAVE}" "NoModify" 1
  WriteRegDWORD HKCU "${CHIAVE}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  IntFmt $0 "0x%08X" $0
  WriteRegDWORD HKCU "${CHIAVE}" "EstimatedSize" "$0"
SectionEnd

; A file that still bears the time that it was packed with is as it came: it goes.
!macro TOGLI_INTATTO FILE POSTO
  GetFileTimeLocal "${CARTELLA}/${FILE}" $2 $3
  ClearErrors
  GetFileTime "$INSTDIR\${POSTO}" $0 $1
  IfErrors +3
  StrCmp "$0:$1" "$2:$3" 0 +2
  Delete "$INSTDIR\${POSTO}"
!macroend

Section Uninstall
  !insertmacro CHIUSI
  !include "${TOGLI}"
  Delete "$INSTDIR\rimuovi.exe"
  RMDir "$INSTDIR\licenze"
  RMDir "$INSTDIR\ridotti"
  RMDir "$INSTDIR\skin"
  RMDir "$INSTDIR\archivio"
  RMDir "$INSTDIR\cruciverba"
  ; A folder that is not empty holds what the player made: it stays.
  SetOutPath "$TEMP"
  RMDir "$INSTDIR"
  RMDir /r "$SMPROGRAMS\Tabellino"
  !insertmacro SENZA_TIPO sen
  !insertmacro SENZA_TIPO sel
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
  DeleteRegKey HKCU "${CHIAVE}"
SectionEnd
