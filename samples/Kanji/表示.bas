Attribute VB_Name = "modHyou"
Option Explicit

' 表の一行を文字列にする。

Private Const NAME_WIDTH As Long = 20
Private Const 見出し As String = "商品名              単価    在庫        合計"

Public Function Midashi() As String
    Midashi = 見出し & vbCrLf & String$(Bytes(見出し), "-")
End Function

Public Function 一行(ByVal oShouhin As CShouhin) As String
    一行 = PadRight(oShouhin.Name, NAME_WIDTH) & PadLeft(oShouhin.Price, 6) & _
        PadLeft(oShouhin.Stock, 8) & PadLeft(oShouhin.Total, 12) ' 全角まじりでも total の桁はそろう
End Function

Public Function 合計行(ByVal curTotal As Currency) As String
    合計行 = PadRight("合計 (税込み)", NAME_WIDTH) & PadLeft(税込み(curTotal), 26) & "円": Rem 税込みの total
End Function

Private Function PadRight(ByVal strText As String, ByVal lngWidth As Long) As String
    PadRight = strText & Space$(lngWidth - Bytes(strText))
End Function

Private Function PadLeft(ByVal varValue As Variant, ByVal lngWidth As Long) As String
    PadLeft = Right$(Space$(lngWidth) & CStr(varValue), lngWidth)
End Function
