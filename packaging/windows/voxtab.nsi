; The Windows installer: for one user, without administrator rights, since settings and working copies
; lie beside the program. Native pages and check boxes only, so that a screen reader reads all of it.
; What the user has changed is never lost: a copy of every text as it was installed stands in "origine",
; and a text that differs from it is the user's own.
; Built by scripts/build-installer, which gives VERSION, SOURCE (the files as they are installed), SORTIE
; and, when there is one, ICONE.

Target amd64-unicode
!include LogicLib.nsh
!include FileFunc.nsh
!include nsDialogs.nsh
!include WinMessages.nsh

Name "Voxtab"
Caption "Installation de Voxtab ${VERSION}"
UninstallCaption "Désinstallation de Voxtab"
BrandingText "Voxtab ${VERSION}"
OutFile "${SORTIE}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\Voxtab"
InstallDirRegKey HKCU "Software\Voxtab" "Dossier"
SetCompressor /SOLID lzma
SetDateSave on
CRCCheck on
XPStyle on
ManifestDPIAware true
ManifestSupportedOS all
AutoCloseWindow true
ShowInstDetails nevershow
ShowUninstDetails nevershow
!ifdef ICONE
Icon "${ICONE}"
UninstallIcon "${ICONE}"
!endif

LoadLanguageFile "${NSISDIR}/Contrib/Language files/French.nlf"
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Voxtab"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Installation de Voxtab"
VIAddVersionKey "CompanyName" "L'équipe Voxtab"
VIAddVersionKey "LegalCopyright" "L'équipe Voxtab, licence MIT"

!define CLE "Software\Voxtab"
!define CLE_RETRAIT "Software\Microsoft\Windows\CurrentVersion\Uninstall\Voxtab"
!define CLE_CHEMIN "Software\Microsoft\Windows\CurrentVersion\App Paths\VOXTAB.EXE"
!define CLASSE "Voxtab.Feuille"
; Exit codes for those who install without a window.
!define SORTIE_REFUS 3
!define SORTIE_ECRITURE 4
!define ID_TEXTE_DOSSIER 1006
!define SWP_ORDRE_SEUL 0x13   ; neither moved nor resized nor active

Var Bureau      ; 1: a shortcut on the desktop
Var Feuilles    ; 1: .VXT files open with the program
Var Lecteur     ; 1: the program asks for the screen reader's folder at its next start
Var LecteurVu   ; 1: the screen reader was found
Var Gardes      ; texts that the user had changed, with a blank before each
Var CaseBureau
Var CaseFeuilles
Var CaseLecteur

DirText "Voxtab garde ses réglages et ses copies de travail dans son dossier. Choisissez un dossier où vous pouvez écrire." "Dossier de Voxtab" "Parcourir..."
Page custom PageChoix QuittePageChoix
Page directory "" MontrePageDossier
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

; Procedures that the installer and the uninstaller share; UN is "" or "un.".
!macro Communes UN

; Whether two files hold the same bytes. Stack: first, second; answer: 1 or 0.
Function ${UN}MemesOctets
  Exch $1
  Exch
  Exch $0
  Push $2
  Push $3
  Push $4
  Push $5
  Push $6
  StrCpy $6 0
  ClearErrors
  FileOpen $2 $0 r
  FileOpen $3 $1 r
  ${IfNot} ${Errors}
    ${Do}
      ClearErrors
      FileReadByte $2 $4
      ${If} ${Errors}
        StrCpy $4 fin
      ${EndIf}
      ClearErrors
      FileReadByte $3 $5
      ${If} ${Errors}
        StrCpy $5 fin
      ${EndIf}
      ${If} $4 != $5
        ${ExitDo}
      ${EndIf}
      ${If} $4 == fin
        StrCpy $6 1
        ${ExitDo}
      ${EndIf}
    ${Loop}
  ${EndIf}
  FileClose $2
  FileClose $3
  ClearErrors
  StrCpy $0 $6
  Pop $6
  Pop $5
  Pop $4
  Pop $3
  Pop $2
  Exch $0
  Exch
  Pop $1
FunctionEnd

; Whether a program of the folder runs: then it can't be opened for writing. Stack: its name; answer: 1
; or 0.
Function ${UN}Occupe
  Exch $0
  Push $1
  StrCpy $1 0
  ${If} ${FileExists} "$INSTDIR\$0"
    ClearErrors
    FileOpen $0 "$INSTDIR\$0" a
    ${If} ${Errors}
      StrCpy $1 1
    ${EndIf}
    FileClose $0
  ${EndIf}
  ClearErrors
  StrCpy $0 $1
  Pop $1
  Exch $0
FunctionEnd

; Asks the program to end, as its user would, and gives it a minute for the questions about its sheets.
Function ${UN}DemandeDeQuitter
  Push $0
  Push $1
  System::Call 'user32::FindWindowExW(p -3, p 0, w "VoxtabRemise", p 0) p .r0'
  ${If} $0 != 0
    System::Call 'user32::AllowSetForegroundWindow(i -1)'
    System::Call 'user32::PostMessageW(p r0, i ${WM_CLOSE}, p 0, p 0)'
  ${EndIf}
  StrCpy $1 0
  ${DoWhile} $1 < 300
    Push "VOXTAB.EXE"
    Call ${UN}Occupe
    Pop $0
    ${If} $0 == 0
      ${ExitDo}
    ${EndIf}
    Sleep 200
    IntOp $1 $1 + 1
  ${Loop}
  Pop $1
  Pop $0
FunctionEnd

; Goes on only when neither program runs.
Function ${UN}AttendQuitte
  Push $0
  Push $1
  encore:
  Push "VOXTAB.EXE"
  Call ${UN}Occupe
  Pop $0
  Push "voxtab-calc.exe"
  Call ${UN}Occupe
  Pop $1
  ${If} "$0$1" != "00"
    MessageBox MB_OKCANCEL|MB_ICONEXCLAMATION "Voxtab est ouvert. Entrée lui demande de se fermer : il vous propose d'abord d'enregistrer vos feuilles. Échap arrête ici, et rien ne change." /SD IDCANCEL IDOK demande
    SetErrorLevel ${SORTIE_REFUS}
    Quit
    demande:
    Call ${UN}DemandeDeQuitter
    Goto encore
  ${EndIf}
  Pop $1
  Pop $0
FunctionEnd

; Tells the desktop that the kinds of files have changed.
Function ${UN}PrevientBureau
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
FunctionEnd
!macroend
!insertmacro Communes ""
!insertmacro Communes "un."

; ---------------------------------------------------------------- choices

; Whether the screen reader is there: its French settings in the user's folder or in the root of the
; disk, or its name in the registry.
Function ChercheLecteur
  StrCpy $LecteurVu 0
  StrCpy $3 "$APPDATA\Freedom Scientific\JAWS"
  FindFirst $0 $1 "$3\*"
  Call ChercheReglages
  StrCpy $3 "C:"
  FindFirst $0 $1 "C:\JAWS*"
  Call ChercheReglages
  EnumRegKey $1 HKLM "Software\Freedom Scientific\JAWS" 0
  ${If} $1 != ""
    StrCpy $LecteurVu 1
  ${EndIf}
FunctionEnd

; The folders of a search that has begun ($0, first name $1) in the folder $3.
Function ChercheReglages
  ${DoWhile} $1 != ""
    ${If} $1 != "."
    ${AndIf} $1 != ".."
      ${If} ${FileExists} "$3\$1\settings\fra\*.*"
      ${OrIf} ${FileExists} "$3\$1\settings\frc\*.*"
        StrCpy $LecteurVu 1
      ${EndIf}
    ${EndIf}
    FindNext $0 $1
  ${Loop}
  FindClose $0
  ClearErrors
FunctionEnd

; Whether the reader's files are not those that an earlier installation laid down. Answer on the stack.
Function FichiersLecteurNeufs
  Push "$INSTDIR\origine\voxtab.jdf"
  Push "$PLUGINSDIR\neuf\voxtab.jdf"
  Call MemesOctets
  Pop $0
  Push "$INSTDIR\origine\voxtab.jcf"
  Push "$PLUGINSDIR\neuf\voxtab.jcf"
  Call MemesOctets
  Pop $1
  ${If} "$0$1" == "11"
    Push 0
  ${Else}
    Push 1
  ${EndIf}
FunctionEnd

; An option of the command line, "oui" or "non", over a default. OPTION is as "/BUREAU=".
!macro OptionOuiNon OPTION VARIABLE
  ClearErrors
  ${GetOptions} $R0 "${OPTION}" $R1
  ${IfNot} ${Errors}
    ${If} $R1 == "oui"
      StrCpy ${VARIABLE} 1
    ${ElseIf} $R1 == "non"
      StrCpy ${VARIABLE} 0
    ${EndIf}
  ${EndIf}
!macroend

Function .onInit
  SetRegView 64
  SetShellVarContext current
  InitPluginsDir
  SetOutPath "$PLUGINSDIR\neuf"
  File /r "${SOURCE}/textes/*"
  Call ChercheLecteur
  ; What was chosen the last time stays. The reader's files are proposed once, and again when they are new.
  StrCpy $Bureau 0
  StrCpy $Feuilles 1
  ReadRegStr $0 HKCU "${CLE}" "Bureau"
  ${If} $0 != ""
    StrCpy $Bureau $0
  ${EndIf}
  ReadRegStr $0 HKCU "${CLE}" "Feuilles"
  ${If} $0 != ""
    StrCpy $Feuilles $0
  ${EndIf}
  StrCpy $Lecteur 0
  ${If} $LecteurVu == 1
    Call FichiersLecteurNeufs
    Pop $Lecteur
    ReadRegStr $0 HKCU "${CLE}" "Lecteur"
    ${If} $0 != 1
      StrCpy $Lecteur 1
    ${EndIf}
  ${EndIf}
  ${GetParameters} $R0
  !insertmacro OptionOuiNon "/BUREAU=" $Bureau
  !insertmacro OptionOuiNon "/FEUILLES=" $Feuilles
  !insertmacro OptionOuiNon "/LECTEUR=" $Lecteur
  ClearErrors
FunctionEnd

Function PageChoix
  nsDialogs::Create 1018
  Pop $0
  ReadRegStr $1 HKCU "${CLE}" "Version"
  ${If} $1 == ""
    StrCpy $1 "Voxtab ${VERSION} sera installé pour vous seul."
  ${Else}
    StrCpy $1 "Voxtab ${VERSION} remplacera la version $1. Vos réglages et vos feuilles restent."
  ${EndIf}
  ${NSD_CreateLabel} 0 0 100% 24u "$1"
  Pop $0
  ${NSD_CreateCheckbox} 0 30u 100% 14u "Mettre un raccourci sur le &Bureau"
  Pop $CaseBureau
  ${NSD_SetState} $CaseBureau $Bureau
  ${NSD_CreateCheckbox} 0 48u 100% 14u "Ouvrir les &feuilles .VXT avec Voxtab"
  Pop $CaseFeuilles
  ${NSD_SetState} $CaseFeuilles $Feuilles
  ${NSD_CreateCheckbox} 0 66u 100% 14u "Au prochain démarrage, installer les fichiers du &lecteur d'écran JAWS"
  Pop $CaseLecteur
  ${NSD_SetState} $CaseLecteur $Lecteur
  ${NSD_SetFocus} $CaseBureau
  nsDialogs::Show
FunctionEnd

Function QuittePageChoix
  ${NSD_GetState} $CaseBureau $Bureau
  ${NSD_GetState} $CaseFeuilles $Feuilles
  ${NSD_GetState} $CaseLecteur $Lecteur
FunctionEnd

; The text of the page stands right before the line for the folder, which it then names for a reader.
Function MontrePageDossier
  FindWindow $0 "#32770" "" $HWNDPARENT
  GetDlgItem $1 $0 ${ID_TEXTE_DOSSIER}
  System::Call 'user32::SetWindowPos(p r1, p 0, i 0, i 0, i 0, i 0, i ${SWP_ORDRE_SEUL})'
FunctionEnd

; ---------------------------------------------------------------- installation

; Ends the installation when something couldn't be written.
Function SiEchec
  ${If} ${Errors}
    Delete "$INSTDIR\VOXTAB.NEUF"
    Delete "$INSTDIR\voxtab-calc.neuf"
    MessageBox MB_OK|MB_ICONSTOP "Impossible d'écrire dans $INSTDIR. Voxtab n'est pas installé." /SD IDOK
    SetErrorLevel ${SORTIE_ECRITURE}
    Quit
  ${EndIf}
FunctionEnd

; Lays down one text ($R0, path below the program's folder) unless the user has changed it: then the
; new one goes to the folder "nouveau".
Function PoseTexte
  Push "$INSTDIR\$R0"
  Push "$INSTDIR\origine\$R0"
  Call MemesOctets
  Pop $R1
  Push "$INSTDIR\$R0"
  Push "$PLUGINSDIR\neuf\$R0"
  Call MemesOctets
  Pop $R2
  ${If} ${FileExists} "$INSTDIR\$R0"
  ${AndIf} "$R1$R2" == "00"
    StrCpy $R3 "$INSTDIR\nouveau\$R0"
    StrCpy $Gardes "$Gardes $R0"
  ${Else}
    StrCpy $R3 "$INSTDIR\$R0"
    Delete "$INSTDIR\nouveau\$R0"
  ${EndIf}
  ${If} $R2 == 0
    ${GetParent} "$R3" $R4
    CreateDirectory "$R4"
    CopyFiles /SILENT "$PLUGINSDIR\neuf\$R0" "$R3"
  ${EndIf}
  ${GetParent} "$INSTDIR\origine\$R0" $R4
  CreateDirectory "$R4"
  CopyFiles /SILENT "$PLUGINSDIR\neuf\$R0" "$INSTDIR\origine\$R0"
FunctionEnd

!macro Texte NOM
  StrCpy $R0 "${NOM}"
  Call PoseTexte
!macroend

Section "Voxtab"
  Call AttendQuitte
  ClearErrors
  SetOverwrite try
  SetOutPath "$INSTDIR"
  ; Whole beside the old ones before these go: a full disk leaves the old version as it is.
  File "/oname=VOXTAB.NEUF" "${SOURCE}/VOXTAB.EXE"
  File "/oname=voxtab-calc.neuf" "${SOURCE}/voxtab-calc.exe"
  Call SiEchec
  Delete "$INSTDIR\VOXTAB.EXE"
  Delete "$INSTDIR\voxtab-calc.exe"
  ClearErrors
  Rename "$INSTDIR\VOXTAB.NEUF" "$INSTDIR\VOXTAB.EXE"
  Rename "$INSTDIR\voxtab-calc.neuf" "$INSTDIR\voxtab-calc.exe"
  Call SiEchec
  !insertmacro Textes
  ${If} $Gardes == ""
    RMDir "$INSTDIR\nouveau\exemples"
    RMDir "$INSTDIR\nouveau"
  ${EndIf}
  ClearErrors
  WriteUninstaller "$INSTDIR\Desinstaller.exe"
  Call SiEchec
  ${If} $Lecteur == 1
    FileOpen $0 "$INSTDIR\verjaws.ini" w
    FileClose $0
    WriteRegStr HKCU "${CLE}" "Lecteur" 1
  ${EndIf}
  Call EcritRegistre
  Call PoseRaccourcis
  Call PrevientBureau
SectionEnd

Function EcritRegistre
  WriteRegStr HKCU "${CLE}" "Dossier" "$INSTDIR"
  WriteRegStr HKCU "${CLE}" "Version" "${VERSION}"
  WriteRegStr HKCU "${CLE}" "Bureau" "$Bureau"
  WriteRegStr HKCU "${CLE}" "Feuilles" "$Feuilles"
  WriteRegStr HKCU "${CLE_CHEMIN}" "" "$INSTDIR\VOXTAB.EXE"
  ; The kind of file is known in any case, so that "Open with" offers the program.
  WriteRegStr HKCU "Software\Classes\${CLASSE}" "" "Feuille Voxtab"
  WriteRegStr HKCU "Software\Classes\${CLASSE}\DefaultIcon" "" '"$INSTDIR\VOXTAB.EXE",0'
  WriteRegStr HKCU "Software\Classes\${CLASSE}\shell\open\command" "" '"$INSTDIR\VOXTAB.EXE" "%1"'
  WriteRegStr HKCU "Software\Classes\.VXT\OpenWithProgids" "${CLASSE}" ""
  ${If} $Feuilles == 1
    WriteRegStr HKCU "Software\Classes\.VXT" "" "${CLASSE}"
  ${EndIf}
  WriteRegStr HKCU "${CLE_RETRAIT}" "DisplayName" "Voxtab"
  WriteRegStr HKCU "${CLE_RETRAIT}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${CLE_RETRAIT}" "DisplayIcon" "$INSTDIR\VOXTAB.EXE"
  WriteRegStr HKCU "${CLE_RETRAIT}" "Publisher" "L'équipe Voxtab"
  WriteRegStr HKCU "${CLE_RETRAIT}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${CLE_RETRAIT}" "UninstallString" '"$INSTDIR\Desinstaller.exe"'
  WriteRegStr HKCU "${CLE_RETRAIT}" "QuietUninstallString" '"$INSTDIR\Desinstaller.exe" /S'
  WriteRegDWORD HKCU "${CLE_RETRAIT}" "NoModify" 1
  WriteRegDWORD HKCU "${CLE_RETRAIT}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  IntFmt $0 "0x%08X" $0
  WriteRegDWORD HKCU "${CLE_RETRAIT}" "EstimatedSize" "$0"
FunctionEnd

Function PoseRaccourcis
  SetOutPath "$INSTDIR"
  CreateDirectory "$SMPROGRAMS\Voxtab"
  CreateShortcut "$SMPROGRAMS\Voxtab\Voxtab.lnk" "$INSTDIR\VOXTAB.EXE"
  CreateShortcut "$SMPROGRAMS\Voxtab\Lisez-moi.lnk" "$INSTDIR\lisezmoi.txt"
  CreateShortcut "$SMPROGRAMS\Voxtab\Désinstaller Voxtab.lnk" "$INSTDIR\Desinstaller.exe"
  ${If} $Bureau == 1
    CreateShortcut "$DESKTOP\Voxtab.lnk" "$INSTDIR\VOXTAB.EXE"
  ${Else}
    Delete "$DESKTOP\Voxtab.lnk"
  ${EndIf}
FunctionEnd

Function .onInstSuccess
  ${If} $Gardes != ""
    MessageBox MB_OK|MB_ICONINFORMATION "Vous aviez changé :$Gardes. Votre texte est gardé, le nouveau est dans le dossier nouveau." /SD IDOK
  ${EndIf}
  MessageBox MB_YESNO|MB_ICONQUESTION "Voxtab est installé. Voulez-vous l'ouvrir maintenant ?" /SD IDNO IDNO fini
  Exec '"$INSTDIR\VOXTAB.EXE"'
  fini:
FunctionEnd

; ---------------------------------------------------------------- removal

; Takes one text ($R0) away unless the user has changed it.
Function un.OteTexte
  Push "$INSTDIR\$R0"
  Push "$INSTDIR\origine\$R0"
  Call un.MemesOctets
  Pop $R1
  ${If} $R1 == 1
    Delete "$INSTDIR\$R0"
  ${EndIf}
  Delete "$INSTDIR\origine\$R0"
  Delete "$INSTDIR\nouveau\$R0"
FunctionEnd

!macro OteTexte NOM
  StrCpy $R0 "${NOM}"
  Call un.OteTexte
!macroend

Function un.onInit
  SetRegView 64
  SetShellVarContext current
FunctionEnd

Section "Uninstall"
  Call un.AttendQuitte
  MessageBox MB_YESNO|MB_ICONQUESTION "Voulez-vous garder vos réglages et la liste de vos derniers fichiers ?" /SD IDYES IDYES garde
  Delete "$INSTDIR\VOXTAB.INI"
  garde:
  Delete "$INSTDIR\VOXTAB.EXE"
  Delete "$INSTDIR\voxtab-calc.exe"
  Delete "$INSTDIR\verjaws.ini"
  !insertmacro TextesOtes
  Delete "$INSTDIR\Desinstaller.exe"
  ; Only empty folders go: a sheet, or a working copy that was never saved, stays with its folder.
  RMDir "$INSTDIR\origine\exemples"
  RMDir "$INSTDIR\origine"
  RMDir "$INSTDIR\nouveau\exemples"
  RMDir "$INSTDIR\nouveau"
  RMDir "$INSTDIR\exemples"
  RMDir "$INSTDIR\travail"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Voxtab\Voxtab.lnk"
  Delete "$SMPROGRAMS\Voxtab\Lisez-moi.lnk"
  Delete "$SMPROGRAMS\Voxtab\Désinstaller Voxtab.lnk"
  RMDir "$SMPROGRAMS\Voxtab"
  Delete "$DESKTOP\Voxtab.lnk"
  ReadRegStr $0 HKCU "Software\Classes\.VXT" ""
  ${If} $0 == "${CLASSE}"
    DeleteRegValue HKCU "Software\Classes\.VXT" ""
  ${EndIf}
  DeleteRegValue HKCU "Software\Classes\.VXT\OpenWithProgids" "${CLASSE}"
  DeleteRegKey /ifempty HKCU "Software\Classes\.VXT\OpenWithProgids"
  DeleteRegKey /ifempty HKCU "Software\Classes\.VXT"
  DeleteRegKey HKCU "Software\Classes\${CLASSE}"
  DeleteRegKey HKCU "${CLE_CHEMIN}"
  DeleteRegKey HKCU "${CLE_RETRAIT}"
  DeleteRegKey HKCU "${CLE}"
  Call un.PrevientBureau
SectionEnd

Function un.onUninstSuccess
  MessageBox MB_OK|MB_ICONINFORMATION "Voxtab est retiré. Vos feuilles et ce que vous avez changé restent." /SD IDOK
FunctionEnd
