Attribute VB_Name = "modLedger"
Option Explicit

' What the classes of the ledger share: the file and its errors.

Public Enum LedgerError
    errNoFile = vbObjectError + 512
    errBadLine
    errBadTotal             ' the check total at the end of the file does not fit
End Enum

Private Const FIELD_SEPARATOR As String = ";"
Public Const TOTAL_MARK As String = "=TOTAL"

Public Sub SaveEntries(ByVal strPath As String, ByVal colEntries As Collection)
    Dim intFile As Integer
    Dim oEntry As CEntry
    Dim curTotal As Currency

    intFile = FreeFile
    Open strPath For Output As #intFile
    Print #intFile, "' made by Ledger; don't edit: the total would no longer fit"
    For Each oEntry In colEntries
        Print #intFile, Join(Array(oEntry.Account, CStr(oEntry.Amount), Quoted(oEntry.Text)), FIELD_SEPARATOR)
        curTotal = curTotal + oEntry.Amount
    Next
    Print #intFile, TOTAL_MARK & FIELD_SEPARATOR & curTotal
    Close #intFile
End Sub

Public Function LoadEntries(ByVal strPath As String) As Collection
    Dim intFile As Integer, strLine As String, curTotal As Currency
    Dim varFields As Variant, oEntry As CEntry

    Set LoadEntries = New Collection
    If Len(Dir$(strPath)) = 0 Then Exit Function
    intFile = FreeFile
    Open strPath For Input As #intFile
    On Error GoTo CloseFile
    Do Until EOF(intFile)
        Line Input #intFile, strLine
        If Left$(strLine, 1) = "'" Then GoTo NextLine
        varFields = Split(strLine, FIELD_SEPARATOR, 3)
        If varFields(0) = TOTAL_MARK Then
            If CCur(varFields(1)) <> curTotal Then Err.Raise errBadTotal, "Ledger", "The total of " & strPath & " is wrong."
        Else
            Set oEntry = New CEntry
            oEntry.Init varFields(0), CCur(varFields(1)), Unquoted(varFields(2))
            curTotal = curTotal + oEntry.Amount
            LoadEntries.Add oEntry
        End If
NextLine:
    Loop
    Close #intFile
    Exit Function

CloseFile:
    Close #intFile
    Err.Raise Err.Number, Err.Source, Err.Description
End Function

Private Function Quoted(ByVal strText As String) As String
    Quoted = """" & Replace(strText, """", """""") & """"
End Function

Private Function Unquoted(ByVal strText As String) As String
    If strText Like """*""" Then strText = Mid$(strText, 2, Len(strText) - 2)
    Unquoted = Replace(strText, """""", """")
End Function
