Attribute VB_Name = "modTests"
Option Explicit

' Tests of the orders and of the ledger. They need no window.

Private mobjAssert As CAssert

Public Sub Main()
    Set mobjAssert = New CAssert

    TestRounding
    TestParse
    TestOrderTotal
    TestEmptyOrder
    TestDiscount
    TestLedgerTotals

    Debug.Print mobjAssert.Report
    If mobjAssert.Failed > 0 Then MsgBox mobjAssert.Report, vbExclamation, "Tests"
End Sub

Private Sub TestRounding()
    mobjAssert.AreEqual CCur(1.24), RoundCents(1.235), "half a cent up"
    mobjAssert.AreEqual CCur(-1.24), RoundCents(-1.235), "half a cent down"
    mobjAssert.AreEqual CCur(6), TotalOf(1, 2, 3), "total of three"
    mobjAssert.AreEqual CCur(0), TotalOf(), "total of none"
End Sub

Private Sub TestParse()
    mobjAssert.AreEqual CCur(1234.5), ParseMoney("1.234,50 €"), "German wording"
    mobjAssert.AreEqual CCur(1234.5), ParseMoney("1'234.5"), "Swiss wording"
    On Error Resume Next
    ParseMoney "ein Euro"
    mobjAssert.Raises 13, "no number"
End Sub

Private Function SmallOrder() As COrder
    Set SmallOrder = New COrder
    SmallOrder.Number = 1
    SmallOrder.Add "Crème brûlée", 2, 4.5, taxReduced
    SmallOrder.Add "Espresso", 3, 2.1
End Function

Private Sub TestOrderTotal()
    Dim oOrder As COrder

    Set oOrder = SmallOrder()
    mobjAssert.AreEqual 2&, oOrder.Count, "lines"
    mobjAssert.AreEqual CCur(9), oOrder(1).SubTotal, "subtotal"
    mobjAssert.AreEqual CCur(15.3), oOrder.Total, "gross total"
    mobjAssert.AreEqual oOrder.Total, oOrder.Total(tkNet) + oOrder.Total(tkTax), "net + tax = total"
    oOrder.Remove 1
    mobjAssert.AreEqual CCur(6.3), oOrder.Total, "total after Remove"
End Sub

Private Sub TestEmptyOrder()
    With New COrder
        mobjAssert.AreEqual CCur(0), .Total, "an empty order's total"
        mobjAssert.AreEqual "(cash)", .Customer, "customer"
    End With
End Sub

Private Sub TestDiscount()
    Dim oOrder As COrder

    Set oOrder = SmallOrder()
    oOrder.Discount = 0.1
    mobjAssert.AreEqual CCur(13.77), oOrder.Total, "total less a tenth"
    On Error Resume Next
    oOrder.Discount = 2
    mobjAssert.Raises 5, "a discount above 1"
End Sub

Private Sub TestLedgerTotals()
    Dim oLedger As Ledger.CLedger
    Dim varStep As Variant, curTotal As Currency

    Set oLedger = New Ledger.CLedger
    For Each varStep In Array(10, -2.5, 0, 4)
        curTotal = curTotal + varStep
        oLedger.Post "Sales", varStep, "step to total " & curTotal
        mobjAssert.AreEqual curTotal, oLedger.Total, "running total"
    Next varStep
    oLedger.Post "Cash", 1
    mobjAssert.AreEqual CCur(11.5), oLedger.Account("Sales").Total, "Sales total"
    mobjAssert.AreEqual 5&, oLedger.Count, "entries"
End Sub
