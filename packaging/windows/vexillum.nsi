; Puts the program and its data tree into the game's directory, and takes them out again.
;   makensis -DVERSION=... -DPROGRAM=... -DDATA=... -DOUTPUT=... vexillum.nsi
;   setup /S [/FORCE] [/D=DIR]       without questions; /FORCE also where there is no totala.exe
;   VXL-Misc\uninstall.exe /S [/FORCE] [/RELEASES]
;                                    /FORCE also where the directory could not be made plain;
;                                    /RELEASES takes the user's releases along
; What they end with, beside NSIS' own 0 and 1: 2 no such game directory, 3 the program is running,
; 4 the directory could not be made plain.
Target amd64-unicode
ManifestSupportedOS all
ManifestDPIAware true
SetCompressor /SOLID lzma
!include LogicLib.nsh
!include FileFunc.nsh
!include MUI2.nsh

Name "Vexillum"
OutFile "${OUTPUT}"
; A player who may write everywhere mostly has the game where only such may.
RequestExecutionLevel highest
BrandingText "Vexillum ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Vexillum"
VIAddVersionKey FileDescription "Vexillum setup"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey LegalCopyright "GNU General Public License, version 3 or later"

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Vexillum"
!define DATATREE "Vexillum"

!define MUI_ICON "${RESOURCES}/vexillum.ico"
!define MUI_UNICON "${RESOURCES}/vexillum.ico"
!define MUI_ABORTWARNING
!define MUI_DIRECTORYPAGE_TEXT_TOP "Vexillum works from inside the game's directory, beside totala.exe. Your \
files there stay as they are; an older Vexillum is brought up to date, its releases and settings are kept."
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE CheckDirectory
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_TEXT "Start Vexillum"
!define MUI_FINISHPAGE_RUN_FUNCTION StartProgram
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Var force
Var releases
Var left

; --- the game's directory

; Takes the folder on the stack if the game lies in it and none was found yet.
Function TryFolder
    Exch $0
    ${If} $INSTDIR == ""
    ${AndIf} $0 != ""
    ${AndIf} ${FileExists} "$0\totala.exe"
        StrCpy $INSTDIR $0
    ${EndIf}
    Pop $0
FunctionEnd
!macro Try FOLDER
    Push "${FOLDER}"
    Call TryFolder
!macroend

Function TryRegistry
    ReadRegStr $0 HKLM "SOFTWARE\Microsoft\DirectPlay\Applications\Total Annihilation" "Path"
    !insertmacro Try $0
    ; A shop that keeps a key with the path for each of its games.
    StrCpy $1 0
    ${Do}
        EnumRegKey $2 HKLM "SOFTWARE\GOG.com\Games" $1
        ${If} $2 == ""
            ${Break}
        ${EndIf}
        ReadRegStr $0 HKLM "SOFTWARE\GOG.com\Games\$2" "path"
        !insertmacro Try $0
        IntOp $1 $1 + 1
    ${Loop}
    ReadRegStr $0 HKLM "SOFTWARE\Valve\Steam" "InstallPath"
    ${If} $0 != ""
        !insertmacro Try "$0\steamapps\common\Total Annihilation"
    ${EndIf}
FunctionEnd

Function FindGame
    ; An older copy of ours knows best.
    ReadRegStr $0 SHCTX "${UNINSTALL}" "InstallLocation"
    !insertmacro Try $0
    !insertmacro Try $EXEDIR
    SetRegView 32
    Call TryRegistry
    SetRegView 64
    Call TryRegistry
    ReadEnvStr $3 SystemDrive
    !insertmacro Try "$3\CAVEDOG\TOTALA"
    !insertmacro Try "$3\TOTALA"
    !insertmacro Try "$3\Games\Total Annihilation"
    !insertmacro Try "$3\GOG Games\Total Annihilation"
    !insertmacro Try "$PROGRAMFILES32\CAVEDOG\TOTALA"
    !insertmacro Try "$PROGRAMFILES32\Total Annihilation"
    !insertmacro Try "$PROGRAMFILES64\Total Annihilation"
FunctionEnd

!macro ForAllUsersIfAllowed
    UserInfo::GetAccountType
    Pop $0
    ${If} $0 == "Admin"
        SetShellVarContext all
    ${EndIf}
    SetRegView 64
!macroend

Function .onInit
    !insertmacro ForAllUsersIfAllowed
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/FORCE" $1
    ${IfNot} ${Errors}
        StrCpy $force 1
    ${EndIf}
    ${If} $INSTDIR == ""
        Call FindGame
    ${EndIf}
    ${If} ${Silent}
        ${If} $INSTDIR == ""
            SetErrorLevel 2
            Abort
        ${EndIf}
        ${IfNot} ${FileExists} "$INSTDIR\totala.exe"
        ${AndIf} $force != 1
            SetErrorLevel 2
            Abort
        ${EndIf}
    ${EndIf}
FunctionEnd

Function CheckDirectory
    ${IfNot} ${FileExists} "$INSTDIR\totala.exe"
        MessageBox MB_YESNO|MB_ICONEXCLAMATION|MB_DEFBUTTON2 \
            'There is no "totala.exe" in "$INSTDIR".$\r$\n$\r$\nWould you like to install Vexillum there all the same?' \
            IDYES goOn
        Abort
        goOn:
    ${EndIf}
FunctionEnd

; --- a program that runs cannot be replaced

!macro DefineWaitForProgram PREFIX
Function ${PREFIX}WaitForProgram
    Exch $0
    tryAgain:
    ${If} ${FileExists} "$0\Vexillum.exe"
        ClearErrors
        FileOpen $1 "$0\Vexillum.exe" a
        ${If} ${Errors}
            MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
                '"$0\Vexillum.exe" is running, or cannot be written.$\r$\n$\r$\nPlease close it and try again.' \
                /SD IDCANCEL IDRETRY tryAgain
            SetErrorLevel 3
            Quit
        ${EndIf}
        FileClose $1
    ${EndIf}
    Pop $0
FunctionEnd
!macroend
!insertmacro DefineWaitForProgram ""
!insertmacro DefineWaitForProgram "un."

; --- the setup

Section
    Push $INSTDIR
    Call WaitForProgram
    SetOutPath "$INSTDIR"
    SetOverwrite on
    File "${PROGRAM}"
    ; What the program or the user may have changed is never replaced.
    SetOverwrite off
    SetOutPath "$INSTDIR\${DATATREE}"
    File /r /x VXL-Help /x VXL-Misc /x VXL-Trlx "${DATA}/*"
    SetOverwrite on
    SetOutPath "$INSTDIR\${DATATREE}\VXL-Help"
    File /r "${DATA}/VXL-Help/*"
    SetOutPath "$INSTDIR\${DATATREE}\VXL-Trlx"
    File /r "${DATA}/VXL-Trlx/*"
    SetOutPath "$INSTDIR\${DATATREE}\VXL-Misc"
    File /r "${DATA}/VXL-Misc/*"
    ; In the data tree the program's own cleaner leaves it alone.
    WriteUninstaller "$INSTDIR\${DATATREE}\VXL-Misc\uninstall.exe"

    SetOutPath "$INSTDIR"
    CreateShortcut "$SMPROGRAMS\Vexillum.lnk" "$INSTDIR\Vexillum.exe"
    WriteRegStr SHCTX "${UNINSTALL}" "DisplayName" "Vexillum"
    WriteRegStr SHCTX "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr SHCTX "${UNINSTALL}" "DisplayIcon" "$INSTDIR\Vexillum.exe"
    WriteRegStr SHCTX "${UNINSTALL}" "Publisher" "Vexillum"
    WriteRegStr SHCTX "${UNINSTALL}" "InstallLocation" "$INSTDIR"
    WriteRegStr SHCTX "${UNINSTALL}" "UninstallString" '"$INSTDIR\${DATATREE}\VXL-Misc\uninstall.exe"'
    WriteRegStr SHCTX "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\${DATATREE}\VXL-Misc\uninstall.exe" /S'
    WriteRegDWORD SHCTX "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD SHCTX "${UNINSTALL}" "NoRepair" 1
SectionEnd

; With the rights of the player, not those of the setup.
Function StartProgram
    Exec '"$WINDIR\explorer.exe" "$INSTDIR\Vexillum.exe"'
FunctionEnd

; --- taking it out again

; A folder with all in it. A link is removed, never gone into.
Function un.RemoveTree
    Exch $0
    Push $1
    Push $2
    Push $3
    System::Call 'kernel32::GetFileAttributes(t r0)i.r3'
    IntOp $3 $3 & 0x400
    ${If} $3 == 0
        FindFirst $1 $2 "$0\*"
        ${DoWhile} $2 != ""
            ${If} $2 != "."
            ${AndIf} $2 != ".."
                ${If} ${FileExists} "$0\$2\*"
                    Push "$0\$2"
                    Call un.RemoveTree
                ${Else}
                    Delete "$0\$2"
                ${EndIf}
            ${EndIf}
            FindNext $1 $2
        ${Loop}
        FindClose $1
    ${EndIf}
    RMDir "$0"
    Pop $3
    Pop $2
    Pop $1
    Pop $0
FunctionEnd

; Removes or counts the releases of a type.
Function un.Releases
    Exch $0
    Push $1
    Push $2
    FindFirst $1 $2 "$INSTDIR\${DATATREE}\$0-*"
    ${DoWhile} $2 != ""
        ${If} $releases == 1
            Push "$INSTDIR\${DATATREE}\$2"
            Call un.RemoveTree
        ${EndIf}
        ${If} ${FileExists} "$INSTDIR\${DATATREE}\$2"
            IntOp $left $left + 1
            DetailPrint "Left: $INSTDIR\${DATATREE}\$2"
        ${EndIf}
        FindNext $1 $2
    ${Loop}
    FindClose $1
    Pop $2
    Pop $1
    Pop $0
FunctionEnd

!macro Releases TYPE
    Push ${TYPE}
    Call un.Releases
!macroend

Function un.onInit
    !insertmacro ForAllUsersIfAllowed
    ; It lies two folders below the game's directory.
    GetFullPathName $INSTDIR "$INSTDIR\..\.."
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/FORCE" $1
    ${IfNot} ${Errors}
        StrCpy $force 1
    ${EndIf}
    ClearErrors
    ${GetOptions} $0 "/RELEASES" $1
    ${IfNot} ${Errors}
        StrCpy $releases 1
    ${EndIf}
FunctionEnd

Section Uninstall
    StrCpy $left 0
    Push $INSTDIR
    Call un.WaitForProgram
    ; The files of the last launch go back first.
    StrCpy $0 1
    ${If} ${FileExists} "$INSTDIR\Vexillum.exe"
        DetailPrint "Making the game's directory plain"
        ClearErrors
        ExecWait '"$INSTDIR\Vexillum.exe" --reset' $0
        ${If} ${Errors}
            StrCpy $0 1
        ${EndIf}
        ${If} $0 != 0
        ${AndIf} $force != 1
            MessageBox MB_YESNO|MB_ICONEXCLAMATION|MB_DEFBUTTON2 \
                'Not all files of the last launch could be moved back, or the game still runs. Vexillum at its next start would say which.$\r$\n$\r$\nWould you like to remove it all the same?' \
                /SD IDNO IDYES goOn
            SetErrorLevel 4
            Quit
            goOn:
        ${EndIf}
    ${EndIf}
    ${If} $releases != 1
        MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 \
            'Your releases in "$INSTDIR\${DATATREE}" stay.$\r$\n$\r$\nWould you like to remove them too?' \
            /SD IDNO IDNO keep
        StrCpy $releases 1
        keep:
    ${EndIf}
    StrCpy $4 $0
    !insertmacro Releases TC
    !insertmacro Releases AI
    !insertmacro Releases Race
    !insertmacro Releases Mod
    !insertmacro Releases Map
    !insertmacro Releases Unit
    Delete "$INSTDIR\Vexillum.exe"
    Delete "$SMPROGRAMS\Vexillum.lnk"
    DeleteRegKey SHCTX "${UNINSTALL}"
    ; The program's own; what else somebody put there stays.
    Push "$INSTDIR\${DATATREE}\VXL-Help"
    Call un.RemoveTree
    Push "$INSTDIR\${DATATREE}\VXL-Trlx"
    Call un.RemoveTree
    Delete "$INSTDIR\${DATATREE}\VXL-Misc\AboutVXL.txt"
    Delete "$INSTDIR\${DATATREE}\VXL-Misc\uninstall.exe"
    RMDir "$INSTDIR\${DATATREE}\VXL-Misc"
    Delete "$INSTDIR\${DATATREE}\MBefore.txt"
    Delete "$INSTDIR\${DATATREE}\MAfter.txt"
    ${If} $4 == 0
        Delete "$INSTDIR\${DATATREE}\VXL-Changes\Internal.txt"
        Delete "$INSTDIR\${DATATREE}\VXL-Changes\Human.txt"
        Delete "$INSTDIR\${DATATREE}\VXL-Changes\State.txt"
        RMDir "$INSTDIR\${DATATREE}\VXL-Changes"
    ${EndIf}
    ${If} $left == 0
        Delete "$INSTDIR\${DATATREE}\VXL-Sel\sel*.txt"
        RMDir "$INSTDIR\${DATATREE}\VXL-Sel"
    ${EndIf}
    RMDir "$INSTDIR\${DATATREE}"
    ${If} ${FileExists} "$INSTDIR\${DATATREE}"
        DetailPrint "Left: $INSTDIR\${DATATREE}"
        MessageBox MB_OK|MB_ICONINFORMATION \
            'Vexillum is removed. What is yours was left in "$INSTDIR\${DATATREE}": $left releases, and what else you keep there.$\r$\n$\r$\nVexillum finds it again when it is installed anew.' \
            /SD IDOK
    ${EndIf}
SectionEnd
