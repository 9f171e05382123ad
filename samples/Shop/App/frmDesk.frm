VERSION 5.00
Object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"; "MSCOMCTL.OCX"
Begin VB.MDIForm frmDesk 
   BackColor       =   &H8000000C&
   Caption         =   "Corner Shop"
   ClientHeight    =   6345
   ClientLeft      =   165
   ClientTop       =   735
   ClientWidth     =   9480
   LinkTopic       =   "MDIForm1"
   StartUpPosition =   2  'CenterScreen
   Begin MSComctlLib.StatusBar stbDesk 
      Align           =   2  'Align Bottom
      Height          =   315
      Left            =   0
      TabIndex        =   0
      Top             =   6030
      Width           =   9480
      _ExtentX        =   16722
      _ExtentY        =   556
      _Version        =   393216
      BeginProperty Panels {8E3867A5-8586-11D1-B16A-00C0F0283628} 
         NumPanels       =   2
         BeginProperty Panel1 {8E3867AB-8586-11D1-B16A-00C0F0283628} 
            AutoSize        =   1
            Text            =   "Day total"
            TextSave        =   "Day total"
         EndProperty
         BeginProperty Panel2 {8E3867AB-8586-11D1-B16A-00C0F0283628} 
            Style           =   6
         EndProperty
      EndProperty
   End
   Begin VB.Menu mnuFile 
      Caption         =   "&File"
      Begin VB.Menu mnuFileNew 
         Caption         =   "&New order"
         Shortcut        =   ^N
      End
      Begin VB.Menu mnuFileBar 
         Caption         =   "-"
      End
      Begin VB.Menu mnuFileExit 
         Caption         =   "E&xit"
      End
   End
   Begin VB.Menu mnuView 
      Caption         =   "&View"
      Begin VB.Menu mnuViewTotal 
         Caption         =   "&Day total…"
      End
      Begin VB.Menu mnuViewAbout 
         Caption         =   "&About…"
      End
   End
End
Attribute VB_Name = "frmDesk"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

' The desk: the window around the orders. Its status bar shows the day total.

Private mintOrders As Integer

Private Sub MDIForm_Load()
    Caption = APP_TITLE & " - " & ReadProfile("Shop", "Name", "Café Übersee")
    ShowTotal
End Sub

Private Sub MDIForm_QueryUnload(Cancel As Integer, UnloadMode As Integer)
    If OpenOrders() > 0 Then
        Cancel = MsgBox("There are open orders. They are not part of the day total." & vbCrLf & _
                        "Close the shop all the same?", vbYesNo + vbQuestion, APP_TITLE) = vbNo
    End If
    If Not CBool(Cancel) Then CloseDay
End Sub

Private Sub mnuFileNew_Click()
    Dim frmNew As frmOrder

    Set frmNew = New frmOrder
    frmNew.StartOrder NextOrderNo()
    frmNew.Show
    mintOrders = mintOrders + 1
End Sub

Private Sub mnuFileExit_Click(): Unload Me: End Sub

Private Sub mnuViewTotal_Click()
    MsgBox "The total of " & mintOrders & " orders is " & Money(gDayTotal) & ".", vbInformation, APP_TITLE
End Sub

Private Sub mnuViewAbout_Click()
    FrmAbout.Show vbModal, Me
End Sub

Public Sub ShowTotal()
    stbDesk.Panels(1).Text = "Day total: " & Money(gDayTotal)   ' what has been closed so far
End Sub

Private Function OpenOrders() As Integer
    Dim frm As Form

    For Each frm In Forms
        If TypeOf frm Is frmOrder Then
            If Not frm.Order.IsClosed Then OpenOrders = OpenOrders + 1
        End If
    Next
End Function
