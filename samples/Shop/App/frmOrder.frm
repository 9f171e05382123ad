VERSION 5.00
Begin VB.Form frmOrder 
   Caption         =   "Order"
   ClientHeight    =   4215
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   6270
   KeyPreview      =   -1  'True
   LinkTopic       =   "Form1"
   MDIChild        =   -1  'True
   ScaleHeight     =   4215
   ScaleWidth      =   6270
   Begin VB.Frame fraLine 
      Caption         =   "New line"
      Height          =   1095
      Left            =   120
      TabIndex        =   3
      Top             =   600
      Width           =   6015
      Begin VB.TextBox txtArticle 
         Height          =   315
         Left            =   120
         TabIndex        =   4
         Top             =   480
         Width           =   2415
      End
      Begin VB.TextBox txtNumber 
         Alignment       =   1  'Right Justify
         Height          =   315
         Index           =   0
         Left            =   2640
         TabIndex        =   5
         Text            =   "1"
         Top             =   480
         Width           =   615
      End
      Begin VB.TextBox txtNumber 
         Alignment       =   1  'Right Justify
         Height          =   315
         Index           =   1
         Left            =   3360
         TabIndex        =   6
         Text            =   "0,00"
         Top             =   480
         Width           =   1095
      End
      Begin VB.CommandButton cmdAdd 
         Caption         =   "&Add"
         Default         =   -1  'True
         Height          =   375
         Left            =   4800
         TabIndex        =   7
         Top             =   450
         Width           =   1095
      End
   End
   Begin VB.ListBox lstLines 
      BeginProperty Font 
         Name            =   "Courier New"
         Size            =   9
         Charset         =   0
         Weight          =   400
         Underline       =   0   'False
         Italic          =   0   'False
         Strikethrough   =   0   'False
      EndProperty
      Height          =   1740
      Left            =   120
      TabIndex        =   2
      Top             =   1800
      Width           =   6015
   End
   Begin VB.ComboBox cboCustomer 
      Height          =   315
      Left            =   120
      TabIndex        =   1
      Text            =   "(cash)"
      Top             =   120
      Width           =   3015
   End
   Begin VB.CommandButton cmdClose 
      Caption         =   "&Close order"
      Height          =   375
      Left            =   120
      TabIndex        =   0
      Top             =   3720
      Width           =   1455
   End
   Begin Shop.TotalBox totOrder 
      Height          =   375
      Left            =   3960
      TabIndex        =   8
      Top             =   3720
      Width           =   2175
      _ExtentX        =   3836
      _ExtentY        =   661
   End
End
Attribute VB_Name = "frmOrder"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

' One order on the desk. The form holds no amounts: the order does, and tells
' its total through an event.

Private Enum NumberBox
    nbQuantity = 0
    nbPrice = 1
End Enum

Private WithEvents mobjOrder As COrder
Attribute mobjOrder.VB_VarHelpID = -1
Private mblnFilling As Boolean

Public Sub StartOrder(ByVal lngNumber As Long)
    Set mobjOrder = New COrder
    mobjOrder.Number = lngNumber
    Caption = "Order " & lngNumber
    totOrder.Total = 0
End Sub

Public Property Get Order() As COrder
    Set Order = mobjOrder
End Property

Private Sub Form_Load()
    Dim varName As Variant

    mblnFilling = True
    For Each varName In Array("(cash)", "Müller & Söhne", "Groß & Co", "Café Übersee")
        cboCustomer.AddItem varName
    Next
    cboCustomer.ListIndex = 0
    mblnFilling = False
End Sub

Private Sub cboCustomer_Click()
    If mblnFilling Then Exit Sub
    mobjOrder.Customer = cboCustomer.Text
    ' The discount depends on the total and the total on the discount:
    ' take the one without any discount first.
    mobjOrder.Discount = 0
    mobjOrder.Discount = DiscountFor(mobjOrder.Customer, mobjOrder.Total)
End Sub

Private Sub cmdAdd_Click()
    On Error GoTo WrongInput
    If Len(txtArticle) = 0 Then txtArticle.SetFocus: Exit Sub
    mobjOrder.Add txtArticle, CLng(txtNumber(nbQuantity)), ParseMoney(txtNumber(nbPrice))
    FillList
    txtArticle = "": txtArticle.SetFocus
    Exit Sub
WrongInput:
    MsgBox "This line can't be added: " & Err.Description, vbExclamation, APP_TITLE
End Sub

Private Sub cmdClose_Click()
    CloseOrder mobjOrder
    frmDesk.ShowTotal
    If mobjOrder.IsClosed Then Unload Me
End Sub

Private Sub FillList()
    Dim oLine As COrderLine

    lstLines.Clear
    For Each oLine In mobjOrder
        lstLines.AddItem oLine.ToText
    Next oLine
End Sub

Private Sub mobjOrder_LineAdded(ByVal oLine As COrderLine, Cancel As Boolean)
    If mobjOrder.IsClosed Then Cancel = True
End Sub

Private Sub mobjOrder_TotalChanged(ByVal NewTotal As Currency)
    totOrder.Total = NewTotal
    cmdClose.Enabled = (NewTotal > 0)   ' a total of nothing cannot be closed
End Sub

Private Sub txtNumber_KeyPress(Index As Integer, KeyAscii As Integer)
    Select Case Chr$(KeyAscii)
    Case "0" To "9", vbBack
    Case ".", ","
        If Index <> nbPrice Then KeyAscii = 0
    Case Else
        KeyAscii = 0
    End Select
End Sub
