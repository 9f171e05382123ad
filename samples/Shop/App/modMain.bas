Attribute VB_Name = "modMain"
Option Explicit

' The start of the application, and what belongs to the whole day.

#Const LOG_TOTALS = 1

Public Const APP_TITLE As String = "Corner Shop"
Public Const TOTAL_FORMAT As String = "#,##0.00 €"
Private Const LOG_FILE As String = "shop.log"

Public gLedger As Ledger.CLedger
Public gDayTotal As Currency        ' the total of all orders closed today
Private mlngOrderNo As Long

' Sub Main: everything starts here. The comment goes on _
  in the next line, where the word total is still a comment.
Public Sub Main()
    On Error GoTo Failed
    Set gLedger = New Ledger.CLedger
    gLedger.OpenFile App.Path & "\ledger.dat"
    gDayTotal = 0: mlngOrderNo = 1000

    frmDesk.Show
    Exit Sub

Failed:
    MsgBox "The shop cannot open:" & vbCrLf & Err.Description, vbCritical, APP_TITLE
End Sub

Public Function NextOrderNo() As Long
    mlngOrderNo = mlngOrderNo + 1
    NextOrderNo = mlngOrderNo
End Function

'
' Adds an order to the day. The order is closed then and takes no
' further lines.
'
Public Sub CloseOrder(ByVal oOrder As COrder)
    Dim curTotal As Currency

    If oOrder Is Nothing Then Exit Sub
    If oOrder.Count = 0 Then
        MsgBox "An order without lines has no total.", vbInformation, APP_TITLE
        Exit Sub
    End If

    curTotal = oOrder.Total(tkGross)
    gDayTotal = gDayTotal + curTotal
    gLedger.Post "Sales", curTotal, "Order " & oOrder.Number & ", total " & _
        Format$(curTotal, TOTAL_FORMAT) & ", customer '" & oOrder.Customer & "'"
    oOrder.IsClosed = True
#If LOG_TOTALS Then
    WriteLog "order " & oOrder.Number & " total=" & curTotal
#End If
End Sub

Rem Closes the day: the day total goes to the cash account.
Public Sub CloseDay()
    Dim strText As String

    strText = "Day total: " & Format$(gDayTotal, TOTAL_FORMAT)
    If gLedger.Total < gDayTotal Then Beep: Rem the ledger's total cannot be lower
    gLedger.Post "Cash", gDayTotal, strText
    gLedger.Save
    WriteLog strText
    MsgBox strText & vbCrLf & "That's ""all"" for today.", vbInformation, APP_TITLE
End Sub

Private Sub WriteLog(ByVal strLine As String)
    Dim intFile As Integer

    intFile = FreeFile
    Open App.Path & "\" & LOG_FILE For Append As #intFile
    Print #intFile, Format$(Now, "yyyy-mm-dd hh:nn:ss"); " "; strLine
    Close #intFile
End Sub

Public Function DiscountFor(ByVal strCustomer As String, ByVal curTotal As Currency) As Single
    Select Case strCustomer
    Case "Müller & Söhne", "Groß & Co"
        If curTotal > 250 Then DiscountFor = 0.03
    Case "Café Übersee"
        DiscountFor = 0.1       ' the house pays a tenth less, whatever the total
    Case Else
        DiscountFor = 0
    End Select
End Function
