' A host as a script: it shows a screen for a payment and prints the records, or checks the records of a batch.
'   cscript //nologo payment.vbs CODE [RECORDFILE]
'   cscript //nologo payment.vbs BATCH.csv BATCH.pc4
' Ends with 0 when all went well, 1 for a cancelled screen or an invalid payment, 2 for an error.
Option Explicit

If WScript.Arguments.Count < 1 Or WScript.Arguments.Count > 2 Then
  WScript.Echo "payment.vbs CODE [RECORDFILE], or payment.vbs BATCH.csv BATCH.pc4"
  WScript.Quit 2
End If
If LCase(Right(WScript.Arguments(0), 4)) = ".csv" Then
  WScript.Quit CheckBatch(WScript.Arguments(0), WScript.Arguments(1))
Else
  WScript.Quit CollectRecords(WScript.Arguments(0))
End If

Function CollectRecords(code)
  Dim payment, chosen, record
  Set payment = CreateObject("Fiscalon.Levyra")
  payment.CompName = "Summit Levies"
  payment.PaidAmount = "12345" ' cents
  payment.PaidDate = "06152026" ' month, day, year
  payment.EnterName = "Ann Walker"
  payment.EnterTitle = "Clerk"
  payment.SeqNumber = "0001"
  If WScript.Arguments.Count = 2 Then
    payment.GovFilename = WScript.Arguments(1)
    payment.WriteFile = True
  End If

  On Error Resume Next
  chosen = payment.ShowLevyraScreen(code)
  If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " from " & Err.Source & ": " & Err.Description
    CollectRecords = 2
    Exit Function
  End If
  On Error GoTo 0

  CollectRecords = 0
  If Not chosen Then
    WScript.Echo "Cancelled."
    CollectRecords = 1
  ElseIf payment.WriteFile Then
    WScript.Echo "Written to " & payment.GovFilename
  ElseIf Not payment.PC4Records Is Nothing Then
    For Each record In payment.PC4Records
      WScript.Echo record.Description
    Next
  End If
End Function

' A row for each payment, with its number, screen, biller and amount in cents; the records of all payments, a line each.
Function CheckBatch(rowsName, recordsName)
  Dim files, lines, rows, row, fields, check, index, allValid
  Set files = CreateObject("Scripting.FileSystemObject")
  lines = Split(files.OpenTextFile(recordsName).ReadAll, vbCrLf)
  rows = Split(files.OpenTextFile(rowsName).ReadAll, vbCrLf)
  Set check = CreateObject("Fiscalon.clsValidateAddInfo")
  allValid = True
  For row = 1 To UBound(rows) - 1 ' behind the headings, up to the last line's end
    fields = Split(rows(row), ",")
    check.ScreenCode = fields(1)
    check.BillerCode = fields(2)
    check.PaymentAmount = fields(3)
    Set check.PC4Records = CreateObject("Fiscalon.PC4s")
    For index = 0 To UBound(lines)
      If Mid(lines(index), 4, 4) = fields(0) Then check.PC4Records.Add , , lines(index)
    Next
    If check.IsInfoValid Then
      WScript.Echo fields(0) & ": valid"
    Else
      WScript.Echo fields(0) & ": invalid: " & check.InvalidReason
      allValid = False
    End If
  Next
  CheckBatch = 1
  If allValid Then CheckBatch = 0
End Function
