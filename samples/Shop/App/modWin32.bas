Attribute VB_Name = "modWin32"
Option Explicit
Option Compare Text

' What the shop asks Windows for: memory, the width of a text, the profile file.

Public Type MEMORYSTATUS
    dwLength As Long
    dwMemoryLoad As Long
    dwTotalPhys As Long         ' the total of physical memory, in bytes
    dwAvailPhys As Long
    dwTotalPageFile As Long
    dwAvailPageFile As Long
    dwTotalVirtual As Long
    dwAvailVirtual As Long
End Type

Private Type SIZEL
    cx As Long
    cy As Long
End Type

Private Declare Sub GlobalMemoryStatus Lib "kernel32" (lpBuffer As MEMORYSTATUS)
Private Declare Function GetTextExtentPoint32 Lib "gdi32" Alias "GetTextExtentPoint32A" ( _
    ByVal hdc As Long, _
    ByVal lpsz As String, _
    ByVal cbString As Long, _
    lpSize As SIZEL) As Long
Private Declare Function GetPrivateProfileString Lib "kernel32" Alias "GetPrivateProfileStringA" (ByVal lpApplicationName As String, ByVal lpKeyName As String, ByVal lpDefault As String, ByVal lpReturnedString As String, ByVal nSize As Long, ByVal lpFileName As String) As Long
Private Declare Function SendMessage Lib "user32" Alias "SendMessageA" (ByVal hwnd As Long, ByVal wMsg As Long, ByVal wParam As Long, lParam As Any) As Long
Public Declare Sub Sleep Lib "kernel32" (ByVal dwMilliseconds As Long)

Private Const LVM_FIRST = &H1000&
Private Const LVM_SETCOLUMNWIDTH = LVM_FIRST + 30
Private Const BUFFER_SIZE = 255

Public Function TotalMemoryKB() As Long
    Dim udtStatus As MEMORYSTATUS

    udtStatus.dwLength = Len(udtStatus)
    GlobalMemoryStatus udtStatus
    TotalMemoryKB = udtStatus.dwTotalPhys \ 1024
End Function

Public Function TextWidthInPixels(ByVal hdc As Long, ByVal strText As String) As Long
    Dim udtSize As SIZEL

    If GetTextExtentPoint32(hdc, strText, LenB(StrConv(strText, vbFromUnicode)), udtSize) <> 0 Then
        TextWidthInPixels = udtSize.cx
    End If
End Function

Public Function ReadProfile(ByVal strSection As String, ByVal strKey As String, _
                            Optional ByVal strDefault As String = "") As String
    Dim strBuffer As String * BUFFER_SIZE
    Dim lngLength As Long

    lngLength = GetPrivateProfileString(strSection, strKey, strDefault, strBuffer, BUFFER_SIZE, App.Path & "\shop.ini")
    ReadProfile = Left$(strBuffer, lngLength)
End Function

Public Sub FitColumns(ByVal hwndList As Long, ByVal intCount As Integer)
    Dim i As Integer

    For i = 0 To intCount - 1: SendMessage hwndList, LVM_SETCOLUMNWIDTH, i, ByVal -2&: Next i
End Sub