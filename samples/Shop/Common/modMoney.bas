Attribute VB_Name = "modMoney"
Option Explicit

' Amounts of money: rounding, tax and wording. Shared by the shop, the
' ledger and the tests.

Public Const TAX_NORMAL As Double = 0.19
Public Const TAX_REDUCED As Double = 0.07
Private Const CENTS_PER_EURO As Long = 100

Public Enum TaxKind
    taxNone = 0
    taxReduced = 1
    taxNormal = 2
    [_taxLast] = 2
End Enum

Public Type AmountParts
    Net As Currency
    Tax As Currency
    Total As Currency       ' Net and Tax together
End Type

Public Function TaxRate(ByVal eKind As TaxKind) As Double
    Select Case eKind
        Case taxNormal: TaxRate = TAX_NORMAL
        Case taxReduced: TaxRate = TAX_REDUCED
        Case Else: TaxRate = 0
    End Select
End Function

' Rounds half a cent away from zero; Round() of the language would go to the even cent.
Public Function RoundCents(ByVal curAmount As Currency) As Currency
    RoundCents = Fix(curAmount * CENTS_PER_EURO + Sgn(curAmount) * 0.5) / CENTS_PER_EURO
End Function

Public Function SplitAmount(ByVal curTotal As Currency, ByVal eKind As TaxKind) As AmountParts
    Dim udtParts As AmountParts

    udtParts.Total = RoundCents(curTotal)
    udtParts.Net = RoundCents(curTotal / (1 + TaxRate(eKind)))
    udtParts.Tax = udtParts.Total - udtParts.Net
    SplitAmount = udtParts
End Function

Public Function Money(ByVal curAmount As Currency) As String
    Money = Format$(curAmount, "#,##0.00") & " €"
End Function

Rem The opposite of Money: reads "1.234,50 €" as well as "1234.5".
Public Function ParseMoney(ByVal strText As String) As Currency
    Dim strDigits As String
    Dim i As Integer
    Dim strChar As String

    strText = Trim$(Replace(strText, "€", ""))
    For i = 1 To Len(strText)
        strChar = Mid$(strText, i, 1)
        If strChar Like "[0-9-]" Then
            strDigits = strDigits & strChar
        ElseIf strChar Like "[.,]" And Len(strText) - i <= 2 Then
            strDigits = strDigits & "."
        ElseIf Not strChar Like "[., ']" Then
            Err.Raise 13, "modMoney", "'" & strText & "' is no amount."
        End If
    Next
    ParseMoney = Val(strDigits)
End Function

' The sum of any number of amounts.
Public Function TotalOf(ParamArray varAmounts() As Variant) As Currency
    Dim varAmount As Variant
    Dim curTotal As Currency

    For Each varAmount In varAmounts
        curTotal = curTotal + varAmount
    Next varAmount
    TotalOf = RoundCents(curTotal)
End Function
