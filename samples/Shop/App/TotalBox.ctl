VERSION 5.00
Begin VB.UserControl TotalBox 
   ClientHeight    =   375
   ClientLeft      =   0
   ClientTop       =   0
   ClientWidth     =   2175
   ScaleHeight     =   375
   ScaleWidth      =   2175
   Begin VB.Label lblCaption 
      Caption         =   "Total"
      Height          =   255
      Left            =   60
      TabIndex        =   0
      Top             =   60
      Width           =   735
   End
   Begin VB.Label lblAmount 
      Alignment       =   1  'Right Justify
      Caption         =   "0,00 €"
      Height          =   255
      Left            =   840
      TabIndex        =   1
      Top             =   60
      Width           =   1275
   End
End
Attribute VB_Name = "TotalBox"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = True
Attribute VB_PredeclaredId = False
Attribute VB_Exposed = False
Option Explicit

' A label and an amount, right aligned; red below zero.

Private Const DEF_TOTAL = 0
Private mcurTotal As Currency

Event Click()
Attribute Click.VB_Description = "The user clicked on the total."
Attribute Click.VB_UserMemId = -600

Public Property Get Total() As Currency
Attribute Total.VB_Description = "The amount shown."
Attribute Total.VB_ProcData.VB_Invoke_Property = ";Data"
Attribute Total.VB_UserMemId = 0
    Total = mcurTotal
End Property

Public Property Let Total(ByVal New_Total As Currency)
    mcurTotal = New_Total
    lblAmount = Money(mcurTotal)
    lblAmount.ForeColor = IIf(mcurTotal < 0, vbRed, vbWindowText)
    PropertyChanged "Total"
End Property

Public Property Get Caption() As String
Attribute Caption.VB_UserMemId = -518
    Caption = lblCaption
End Property

Public Property Let Caption(ByVal New_Caption As String)
    lblCaption = New_Caption
    PropertyChanged "Caption"
End Property

Private Sub lblAmount_Click(): RaiseEvent Click: End Sub
Private Sub lblCaption_Click(): RaiseEvent Click: End Sub

Private Sub UserControl_InitProperties()
    Total = DEF_TOTAL
    Caption = "Total"
End Sub

Private Sub UserControl_ReadProperties(PropBag As PropertyBag)
    Total = PropBag.ReadProperty("Total", DEF_TOTAL)
    Caption = PropBag.ReadProperty("Caption", "Total")
End Sub

Private Sub UserControl_WriteProperties(PropBag As PropertyBag)
    Call PropBag.WriteProperty("Total", mcurTotal, DEF_TOTAL)
    Call PropBag.WriteProperty("Caption", lblCaption.Caption, "Total")
End Sub

Private Sub UserControl_Resize()
    On Error Resume Next    ' the control can be narrower than its label
    lblAmount.Width = ScaleWidth - lblAmount.Left - 60
End Sub
