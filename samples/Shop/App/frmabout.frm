VERSION 5.00
Begin VB.Form FrmAbout 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "About"
   ClientHeight    =   1830
   ClientLeft      =   45
   ClientTop       =   330
   ClientWidth     =   4110
   ControlBox      =   0   'False
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   ScaleHeight     =   1830
   ScaleWidth      =   4110
   ShowInTaskbar   =   0   'False
   StartUpPosition =   1  'CenterOwner
   Begin VB.CommandButton cmdOK 
      Cancel          =   -1  'True
      Caption         =   "OK"
      Default         =   -1  'True
      Height          =   375
      Left            =   2880
      TabIndex        =   0
      Top             =   1320
      Width           =   1095
   End
   Begin VB.Label lblTotal 
      Caption         =   "Total memory"
      Height          =   255
      Left            =   120
      TabIndex        =   2
      Top             =   840
      Width           =   3855
   End
   Begin VB.Label lblTitle 
      Caption         =   "© Café Übersee"
      BeginProperty Font 
         Name            =   "MS Sans Serif"
         Size            =   12
         Charset         =   0
         Weight          =   700
         Underline       =   0   'False
         Italic          =   0   'False
         Strikethrough   =   0   'False
      EndProperty
      Height          =   375
      Left            =   120
      TabIndex        =   1
      Top             =   240
      Width           =   3855
   End
End
Attribute VB_Name = "FrmAbout"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
' Says who made the shop and what it runs on.

Private Sub Form_Load()
    lblTitle = APP_TITLE & " " & App.Major & "." & App.Minor & vbCrLf & App.LegalCopyright
    lblTotal = "Total memory: " & Format$(TotalMemoryKB() \ 1024, "#,##0") & " MB"
#If DEMO Then
    lblTotal = lblTotal & " (demo: no order above a total of 100 €)"
#End If
End Sub

Private Sub cmdOK_Click()
    Unload Me
End Sub
