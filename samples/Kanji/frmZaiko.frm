VERSION 5.00
Begin VB.Form frmZaiko 
   Caption         =   "在庫表"
   ClientHeight    =   3195
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   6000
   LinkTopic       =   "Form1"
   ScaleHeight     =   3195
   ScaleWidth      =   6000
   StartUpPosition =   3  'Windows の既定値
   Begin VB.ListBox lstHyou 
      BeginProperty Font 
         Name            =   "ＭＳ ゴシック"
         Size            =   9
         Charset         =   128
         Weight          =   400
         Underline       =   0   'False
         Italic          =   0   'False
         Strikethrough   =   0   'False
      EndProperty
      Height          =   2400
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   5775
   End
   Begin VB.CommandButton cmdYomu 
      Caption         =   "読み込み(&R)"
      Height          =   375
      Left            =   120
      TabIndex        =   1
      Top             =   2640
      Width           =   1455
   End
   Begin VB.Label lblTotal 
      Alignment       =   1  '右揃え
      Caption         =   "合計"
      Height          =   255
      Left            =   3000
      TabIndex        =   2
      Top             =   2700
      Width           =   2895
   End
End
Attribute VB_Name = "frmZaiko"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

' 在庫表の画面。

Private Sub Form_Load()
    Caption = TITLE_TEXT
    lblTotal = "合計: total なし"
End Sub

Private Sub cmdYomu_Click()
    Dim oShouhin As CShouhin

    On Error GoTo 失敗
    ReadShouhin App.Path & "\在庫表.csv"
    lstHyou.Clear
    lstHyou.AddItem Midashi()
    For Each oShouhin In Shouhin
        lstHyou.AddItem 一行(oShouhin)
    Next
    lblTotal = 合計行(合計(Shouhin))        ' ここで total を表示
    Exit Sub
失敗:
    MsgBox "読み込みに失敗しました。" & vbCrLf & Err.Description, vbExclamation, TITLE_TEXT
End Sub
