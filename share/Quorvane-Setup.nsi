; Quorvane-Setup.exe: puts the add-in into the user's own folders and the user's own part of the registry, so that no
; administrator is needed. `makensis -DBUILD=folder -DOUTPUT=file` packs the files of a build.
;
;   /S         no windows: installs, or uninstalls and keeps the settings
;   /D=folder  where to (last, without quotes)
;   /PURGE     uninstalling: the settings go too, without a question
;
; Exit status: 0 done, 1 refused by the user, 2 something is in the way; then everything is as it was before.
Unicode true
SetCompressor /SOLID lzma
!getdllversion "${BUILD}/QuorvaneForVB6.dll" version_

!define NAME "Quorvane"
!define HOME "Software\Quorvane"
!define LISTED "Software\Microsoft\Windows\CurrentVersion\Uninstall\Quorvane"
!define SETTINGS "Software\VB and VBA Program Settings\Quorvane插件"

Name "${NAME}"
OutFile "${OUTPUT}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Quorvane"
InstallDirRegKey HKCU "${HOME}" "Folder"
ShowInstDetails nevershow
ShowUninstDetails nevershow
BrandingText " "
VIProductVersion "${version_1}.${version_2}.${version_3}.${version_4}"
VIAddVersionKey "ProductName" "${NAME}"
VIAddVersionKey "FileDescription" "Quorvane for Visual Basic 6"
VIAddVersionKey "FileVersion" "${version_1}.${version_2}.${version_3}.${version_4}"
VIAddVersionKey "LegalCopyright" "The Quorvane authors"

!include FileFunc.nsh
!include LogicLib.nsh

Page license
Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

LoadLanguageFile "${NSISDIR}\Contrib\Language files\English.nlf"
LoadLanguageFile "${NSISDIR}\Contrib\Language files\SimpChinese.nlf"
LicenseData "${BUILD}/License.txt"

LangString inUse ${LANG_ENGLISH} "A file of Quorvane is in use. Close Visual Basic and try again."
LangString inUse ${LANG_SIMPCHINESE} "Quorvane 的文件正在使用。请关闭 Visual Basic 后再试。"
LangString notRegistered ${LANG_ENGLISH} "The add-in cannot be registered."
LangString notRegistered ${LANG_SIMPCHINESE} "无法注册插件。"
LangString notWritten ${LANG_ENGLISH} "The files cannot be written to $INSTDIR."
LangString notWritten ${LANG_SIMPCHINESE} "无法把文件写入 $INSTDIR。"
LangString purge ${LANG_ENGLISH} "Do you want to remove your settings of Quorvane, too?"
LangString purge ${LANG_SIMPCHINESE} "是否同时删除 Quorvane 的设置？"

; Whether somebody holds the file on the stack: leaves "held" there, or nothing. A program file that is loaded can be
; renamed but not opened for writing.
!macro IsHeld un
Function ${un}IsHeld
  Exch $0
  Push $1
  ClearErrors
  ${If} ${FileExists} "$0"
    FileOpen $1 "$0" a
    ${If} ${Errors}
      StrCpy $0 "held"
    ${Else}
      FileClose $1
      StrCpy $0 ""
    ${EndIf}
  ${Else}
    StrCpy $0 ""
  ${EndIf}
  Pop $1
  Exch $0
FunctionEnd
!macroend
!insertmacro IsHeld ""
!insertmacro IsHeld "un."

; Names in $2 whether one of the program files is held.
!macro AnyHeld un
  Push "$INSTDIR\QuorvaneForVB6.dll"
  Call ${un}IsHeld
  Pop $2
  ${If} $2 == ""
    Push "$INSTDIR\quorvane.exe"
    Call ${un}IsHeld
    Pop $2
  ${EndIf}
!macroend

!macro ForAllFiles what
  !insertmacro ${what} "QuorvaneForVB6.dll"
  !insertmacro ${what} "quorvane.exe"
  !insertmacro ${what} "ReadMe.txt"
  !insertmacro ${what} "License.txt"
!macroend
!macro Unpack file
  File "/oname=${file}.new" "${BUILD}/${file}"
!macroend
!macro DropNew file
  Delete "$INSTDIR\${file}.new"
!macroend
!macro TakeNew file
  Delete "$INSTDIR\${file}.old"
  ${If} ${FileExists} "$INSTDIR\${file}"
    Rename "$INSTDIR\${file}" "$INSTDIR\${file}.old"
  ${EndIf}
  Rename "$INSTDIR\${file}.new" "$INSTDIR\${file}"
!macroend
!macro TakeOld file
  ${If} ${FileExists} "$INSTDIR\${file}.old"
    Delete "$INSTDIR\${file}"
    Rename "$INSTDIR\${file}.old" "$INSTDIR\${file}"
  ${Else}
    Delete "$INSTDIR\${file}"
  ${EndIf}
!macroend
!macro DropOld file
  Delete "$INSTDIR\${file}.old"
!macroend

Section
  SetOutPath "$INSTDIR"
  SetOverwrite try
  ClearErrors
  !insertmacro ForAllFiles Unpack
  ${If} ${Errors}
    StrCpy $3 "$(notWritten)"
  ${Else}
    !insertmacro AnyHeld ""
    ${If} $2 == "held"
      StrCpy $3 "$(inUse)"
    ${EndIf}
  ${EndIf}
  ${If} $3 != ""
    !insertmacro ForAllFiles DropNew
    SetOutPath "$TEMP"
    RMDir "$INSTDIR"
    MessageBox MB_OK|MB_ICONEXCLAMATION "$3" /SD IDOK
    SetErrorLevel 2
    Quit
  ${EndIf}
  ClearErrors
  !insertmacro ForAllFiles TakeNew
  WriteUninstaller "$INSTDIR\Uninstall.exe"
  ${If} ${Errors}
    StrCpy $3 "$(notWritten)"
  ${Else}
    RegDLL "$INSTDIR\QuorvaneForVB6.dll"
    ${If} ${Errors}
      StrCpy $3 "$(notRegistered)"
    ${EndIf}
  ${EndIf}
  ${If} $3 != ""
    !insertmacro ForAllFiles TakeOld
    !insertmacro ForAllFiles DropNew
    ${If} ${FileExists} "$INSTDIR\QuorvaneForVB6.dll"
      RegDLL "$INSTDIR\QuorvaneForVB6.dll"
    ${Else}
      Delete "$INSTDIR\Uninstall.exe"
    ${EndIf}
    SetOutPath "$TEMP"
    RMDir "$INSTDIR"
    MessageBox MB_OK|MB_ICONSTOP "$3" /SD IDOK
    SetErrorLevel 2
    Quit
  ${EndIf}
  !insertmacro ForAllFiles DropOld
  WriteRegStr HKCU "${HOME}" "Folder" "$INSTDIR"
  WriteRegStr HKCU "${LISTED}" "DisplayName" "Quorvane"
  WriteRegStr HKCU "${LISTED}" "DisplayVersion" "${version_1}.${version_2}.${version_4}"
  WriteRegStr HKCU "${LISTED}" "Publisher" "The Quorvane authors"
  WriteRegStr HKCU "${LISTED}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKCU "${LISTED}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKCU "${LISTED}" "NoModify" 1
  WriteRegDWORD HKCU "${LISTED}" "NoRepair" 1
SectionEnd

!macro Remove file
  Delete "$INSTDIR\${file}"
!macroend

Section Uninstall
  !insertmacro AnyHeld "un."
  ${If} $2 == "held"
    MessageBox MB_OK|MB_ICONEXCLAMATION "$(inUse)" /SD IDOK
    SetErrorLevel 2
    Quit
  ${EndIf}
  ; The classes leave the registry while the file is still there to say which.
  UnRegDLL "$INSTDIR\QuorvaneForVB6.dll"

  StrCpy $4 0
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/PURGE" $1
  ${IfNot} ${Errors}
    StrCpy $4 1
  ${Else}
    MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "$(purge)" /SD IDNO IDNO keep
    StrCpy $4 1
    keep:
  ${EndIf}
  ${If} $4 = 1
    DeleteRegKey HKCU "${SETTINGS}"
    Delete "$INSTDIR\config.ini"
    ; Where the folder of the program could not be written to.
    Delete "$APPDATA\Quorvane\config.ini"
    RMDir "$APPDATA\Quorvane"
  ${EndIf}
  !insertmacro ForAllFiles Remove
  Delete "$INSTDIR\Uninstall.exe"
  SetOutPath "$TEMP"
  RMDir "$INSTDIR"
  DeleteRegKey HKCU "${LISTED}"
  DeleteRegValue HKCU "${HOME}" "Folder"
  DeleteRegKey /ifempty HKCU "${HOME}"
SectionEnd
