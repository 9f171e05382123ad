Attribute VB_Name = "modZaiko"
Option Explicit

' 在庫の計算。合計 (total) はいつも税込みです。

Public Const 消費税率 As Double = 0.05
Public Const TITLE_TEXT As String = "在庫表ソフト"        ' 「表」と「ソ」の二バイト目は 5C

Public Enum 区分
    kbnNyuuko = 1       ' 入庫
    kbnShukko = 2       ' 出庫
End Enum

Private mcolShouhin As Collection

Public Function 合計(ByVal colShouhin As Collection) As Currency
    Dim oShouhin As CShouhin
    Dim curTotal As Currency

    For Each oShouhin In colShouhin
        curTotal = curTotal + oShouhin.Total
    Next oShouhin
    合計 = curTotal
End Function

' 税込みの金額。端数は切り捨て。 _
  total の端数も切り捨て。
Public Function 税込み(ByVal curAmount As Currency) As Currency
    税込み = Int(curAmount * (1 + 消費税率))
End Function

Public Sub ReadShouhin(ByVal strPath As String)
    Dim intFile As Integer
    Dim strLine As String
    Dim varFields As Variant
    Dim oShouhin As CShouhin

    Set mcolShouhin = New Collection
    intFile = FreeFile
    Open strPath For Input As #intFile
    Do Until EOF(intFile)
        Line Input #intFile, strLine
        If Left$(strLine, 1) <> "'" Then
            varFields = Split(strLine, ",")
            Set oShouhin = New CShouhin
            oShouhin.Name = varFields(0): oShouhin.Price = CCur(varFields(1)): oShouhin.Stock = CLng(varFields(2))
            mcolShouhin.Add oShouhin, oShouhin.Name
        End If
    Loop
    Close #intFile
End Sub

Public Property Get Shouhin() As Collection
    If mcolShouhin Is Nothing Then Set mcolShouhin = New Collection
    Set Shouhin = mcolShouhin
End Property

Public Function Bytes(ByVal strText As String) As Long
    Bytes = LenB(StrConv(strText, vbFromUnicode))   ' 全角は 2, 半角ｶﾅは 1
End Function

Rem 移動を記録する。性能のため、画面は書き直さない。
Public Sub Record(ByVal strName As String, ByVal lngCount As Long, ByVal eKubun As 区分)
    Select Case eKubun
    Case kbnNyuuko
        mcolShouhin(strName).Stock = mcolShouhin(strName).Stock + lngCount
    Case kbnShukko
        If mcolShouhin(strName).Stock < lngCount Then Err.Raise 5, "modZaiko", "「" & strName & "」の在庫が足りません。"
        mcolShouhin(strName).Stock = mcolShouhin(strName).Stock - lngCount
    End Select
    Debug.Print "合計 total: "; 合計(mcolShouhin)
End Sub
