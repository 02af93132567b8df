' Every member of every class, and its errors, as a script meets them: every_member.vbs LOGFOLDER
' Prints what is not as it should be, and last how many things were looked at.
Option Explicit
On Error Resume Next
Dim looked, wrong
looked = 0
wrong = 0

Sub Same(what, seen, wanted)
  looked = looked + 1
  If seen = wanted And Err.Number = 0 Then Exit Sub
  wrong = wrong + 1
  WScript.Echo what & ": " & seen & ", not " & wanted & " (" & Err.Number & " " & Err.Description & ")"
  Err.Clear
End Sub

' The error that the statement before has raised.
Sub Raised(what, number, source, description)
  Dim seen
  seen = Err.Number & "|" & Err.Source & "|" & Err.Description
  Err.Clear
  Same what, seen, number & "|" & source & "|" & description
End Sub

Sub RaisedNumber(what, number)
  Dim seen
  seen = Err.Number
  Err.Clear
  Same what, seen, number
End Sub

Const InvalidCall = "Invalid procedure call or argument"
Const KeyTaken = "This key is already associated with an element of this collection"

Dim payment, check, setup, records, record, fields, formats, slot, slots, key, walked, index, name

Set payment = CreateObject("Fiscalon.Levyra")
Same "ZelmorNumber", payment.ZelmorNumber, ""
payment.ZelmorNumber = "ZelmorNumber!"
Same "ZelmorNumber", payment.ZelmorNumber, "ZelmorNumber!"
Same "CompCode", payment.CompCode, ""
payment.CompCode = "CompCode!"
Same "CompCode", payment.CompCode, "CompCode!"
Same "CompName", payment.CompName, ""
payment.CompName = "CompName!"
Same "CompName", payment.CompName, "CompName!"
Same "AccountNumber", payment.AccountNumber, ""
payment.AccountNumber = "AccountNumber!"
Same "AccountNumber", payment.AccountNumber, "AccountNumber!"
Same "PaidDate", payment.PaidDate, ""
payment.PaidDate = "PaidDate!"
Same "PaidDate", payment.PaidDate, "PaidDate!"
Same "NumberOfInfoCollect", payment.NumberOfInfoCollect, ""
payment.NumberOfInfoCollect = "NumberOfInfoCollect!"
Same "NumberOfInfoCollect", payment.NumberOfInfoCollect, "NumberOfInfoCollect!"
Same "GovFilename", payment.GovFilename, ""
payment.GovFilename = "GovFilename!"
Same "GovFilename", payment.GovFilename, "GovFilename!"
Same "EnterName", payment.EnterName, ""
payment.EnterName = "EnterName!"
Same "EnterName", payment.EnterName, "EnterName!"
Same "EnterTitle", payment.EnterTitle, ""
payment.EnterTitle = "EnterTitle!"
Same "EnterTitle", payment.EnterTitle, "EnterTitle!"
Same "SeqNumber", payment.SeqNumber, ""
payment.SeqNumber = "SeqNumber!"
Same "SeqNumber", payment.SeqNumber, "SeqNumber!"
Same "BusinessName", payment.BusinessName, ""
payment.BusinessName = "BusinessName!"
Same "BusinessName", payment.BusinessName, "BusinessName!"
Same "PaidAmount", payment.PaidAmount, ""
payment.PaidAmount = "12345"
Same "PaidAmount", payment.PaidAmount, "123.45"
payment.PaidAmount = 1200
Same "PaidAmount of a number", payment.PaidAmount, "12"
payment.PaidAmount = "5"
Same "PaidAmount of cents", payment.PaidAmount, ".05"
payment.PaidAmount = "abc"
Same "PaidAmount of no number", payment.PaidAmount, "0"
payment.PaidAmount = "1E400"
Raised "PaidAmount beyond floats", 6, "Fiscalon", "Overflow"
Same "APHoldFlg", payment.APHoldFlg, 0
payment.APHoldFlg = 255
Same "APHoldFlg", payment.APHoldFlg, 255
payment.APHoldFlg = 256
RaisedNumber "APHoldFlg beyond a byte", 6
Same "ShowGST58", payment.ShowGST58, False
payment.ShowGST58 = True
RaisedNumber "ShowGST58 is read alone", 438
Same "WriteFile", payment.WriteFile, False
payment.WriteFile = 1
Same "WriteFile of a number", payment.WriteFile, True
payment.WriteFile = False
Same "WriteFile", payment.WriteFile, False
Same "PC4Records", payment.PC4Records Is Nothing, True
payment.PlayByPlayEnabled = False
Same "PlayByPlayEnabled", Err.Number, 0
name = payment.PlayByPlayEnabled
RaisedNumber "PlayByPlayEnabled is written alone", 438
payment.MainPath = WScript.Arguments(0)
Same "MainPath", Err.Number, 0
name = payment.MainPath
RaisedNumber "MainPath is written alone", 438
payment.SessionNumber = 123456
Same "SessionNumber", Err.Number, 0
payment.SessionNumber = 1E10
Raised "SessionNumber beyond 32 bits", 6, "Fiscalon", "Overflow"
payment.SessionNumber = "no number"
RaisedNumber "SessionNumber of a text", 13
payment.CompName = Null
RaisedNumber "CompName of no text", 13
For Each name In Array("12", "09", "", " 15", "15 ", "29")
  index = payment.ShowLevyraScreen(name)
  Raised "ShowLevyraScreen " & name, -2147221503, "Fiscalon.ShowLevyraScreen", "Invalid Screen Type"
Next
index = payment.NoSuchMember
RaisedNumber "no such member", 438

Set records = CreateObject("Fiscalon.PC4s")
Same "PC4s Count", records.Count, 0
records.Clear
Same "PC4s Clear of nothing", records.Count, 0
Set record = records.Add("TheDate", "Amount", "Description", "key")
Same "PC4 TheDate", record.TheDate, "TheDate"
record.TheDate = "TheDate now"
Same "PC4 TheDate", record.TheDate, "TheDate now"
Same "PC4 Amount", record.Amount, "Amount"
record.Amount = "Amount now"
Same "PC4 Amount", record.Amount, "Amount now"
Same "PC4 Description", record.Description, "Description"
record.Description = "Description now"
Same "PC4 Description", record.Description, "Description now"
records.Add
name = "by reference"
records.Add name
Same "PC4s Count", records.Count, 3
Same "PC4s Item", records.Item(1) Is record, True
Same "PC4s default member", records("key") Is record, True
index = 1
Same "PC4s position by reference", records(index) Is record, True
Same "PC4s position as a float", records(1.0) Is record, True
name = "key"
Same "PC4s key by reference", records.Item(name) Is record, True
Same "PC4s text by reference", records(3).TheDate, "by reference"
walked = ""
For Each key In records
  walked = walked & key.TheDate & ";"
Next
Same "PC4s for each", walked, "TheDate now;;by reference;"
Set key = records.Item(4)
Raised "PC4s unknown position", 9, "Fiscalon", "Subscript out of range"
Set key = records.Item(0)
Raised "PC4s position 0", 9, "Fiscalon", "Subscript out of range"
records.Remove 4
Raised "PC4s Remove of an unknown position", 9, "Fiscalon", "Subscript out of range"
Set key = records.Item("no key")
Raised "PC4s unknown key", 5, "Fiscalon", InvalidCall
Set key = records.Item("")
Raised "PC4s empty key", 5, "Fiscalon", InvalidCall
records.Remove "no key"
Raised "PC4s Remove of an unknown key", 5, "Fiscalon", InvalidCall
For Each name In Array(Empty, Null, True, Array(1))
  Set key = records.Item(name)
  Raised "PC4s what is no key", 13, "Fiscalon", "Type mismatch"
Next
Set key = records.Item(records)
Raised "PC4s an object is no key", 13, "Fiscalon", "Type mismatch"
Set key = Nothing
Set key = records.Add("TheDate", "Amount", "Description", "key")
Raised "PC4s taken key", 457, "Fiscalon", KeyTaken
Same "PC4s Add of a taken key", key Is Nothing, True
records.Remove 2
records.Remove "key"
Same "PC4s Remove", records.Count, 1
Same "PC4s Remove", records(1).TheDate, "by reference"
records.Clear
Same "PC4s Clear", records.Count, 0
Same "PC4s a member outlives its place", record.TheDate, "TheDate now"
For Each key In records
  Same "PC4s for each of nothing", 1, 0
Next

Set formats = CreateObject("Fiscalon.clsPC4GovFormats")
Same "clsPC4GovFormats Count", formats.Count, 0
formats.Clear
Same "clsPC4GovFormats Clear of nothing", formats.Count, 0
Set fields = formats.Add("PeriodStartDate", "PeriodEndDate", "PeriodDueDate", "Filler1", "ContactName", "ContactTitle", "Filler2", "key")
Same "clsPC4GovFormat PeriodStartDate", fields.PeriodStartDate, "PeriodStartDate"
fields.PeriodStartDate = "PeriodStartDate now"
Same "clsPC4GovFormat PeriodStartDate", fields.PeriodStartDate, "PeriodStartDate now"
Same "clsPC4GovFormat PeriodEndDate", fields.PeriodEndDate, "PeriodEndDate"
fields.PeriodEndDate = "PeriodEndDate now"
Same "clsPC4GovFormat PeriodEndDate", fields.PeriodEndDate, "PeriodEndDate now"
Same "clsPC4GovFormat PeriodDueDate", fields.PeriodDueDate, "PeriodDueDate"
fields.PeriodDueDate = "PeriodDueDate now"
Same "clsPC4GovFormat PeriodDueDate", fields.PeriodDueDate, "PeriodDueDate now"
Same "clsPC4GovFormat Filler1", fields.Filler1, "Filler1"
fields.Filler1 = "Filler1 now"
Same "clsPC4GovFormat Filler1", fields.Filler1, "Filler1 now"
Same "clsPC4GovFormat ContactName", fields.ContactName, "ContactName"
fields.ContactName = "ContactName now"
Same "clsPC4GovFormat ContactName", fields.ContactName, "ContactName now"
Same "clsPC4GovFormat ContactTitle", fields.ContactTitle, "ContactTitle"
fields.ContactTitle = "ContactTitle now"
Same "clsPC4GovFormat ContactTitle", fields.ContactTitle, "ContactTitle now"
Same "clsPC4GovFormat Filler2", fields.Filler2, "Filler2"
fields.Filler2 = "Filler2 now"
Same "clsPC4GovFormat Filler2", fields.Filler2, "Filler2 now"
formats.Add
name = "by reference"
formats.Add name
Same "clsPC4GovFormats Count", formats.Count, 3
Same "clsPC4GovFormats Item", formats.Item(1) Is fields, True
Same "clsPC4GovFormats default member", formats("key") Is fields, True
index = 1
Same "clsPC4GovFormats position by reference", formats(index) Is fields, True
Same "clsPC4GovFormats position as a float", formats(1.0) Is fields, True
name = "key"
Same "clsPC4GovFormats key by reference", formats.Item(name) Is fields, True
Same "clsPC4GovFormats text by reference", formats(3).PeriodStartDate, "by reference"
walked = ""
For Each key In formats
  walked = walked & key.PeriodStartDate & ";"
Next
Same "clsPC4GovFormats for each", walked, "PeriodStartDate now;;by reference;"
Set key = formats.Item(4)
Raised "clsPC4GovFormats unknown position", 9, "Fiscalon", "Subscript out of range"
Set key = formats.Item(0)
Raised "clsPC4GovFormats position 0", 9, "Fiscalon", "Subscript out of range"
formats.Remove 4
Raised "clsPC4GovFormats Remove of an unknown position", 9, "Fiscalon", "Subscript out of range"
Set key = formats.Item("no key")
Raised "clsPC4GovFormats unknown key", 5, "Fiscalon", InvalidCall
Set key = formats.Item("")
Raised "clsPC4GovFormats empty key", 5, "Fiscalon", InvalidCall
formats.Remove "no key"
Raised "clsPC4GovFormats Remove of an unknown key", 5, "Fiscalon", InvalidCall
For Each name In Array(Empty, Null, True, Array(1))
  Set key = formats.Item(name)
  Raised "clsPC4GovFormats what is no key", 13, "Fiscalon", "Type mismatch"
Next
Set key = formats.Item(formats)
Raised "clsPC4GovFormats an object is no key", 13, "Fiscalon", "Type mismatch"
Set key = Nothing
Set key = formats.Add("PeriodStartDate", "PeriodEndDate", "PeriodDueDate", "Filler1", "ContactName", "ContactTitle", "Filler2", "key")
Raised "clsPC4GovFormats taken key", 457, "Fiscalon", KeyTaken
Same "clsPC4GovFormats Add of a taken key", key Is Nothing, True
formats.Remove 2
formats.Remove "key"
Same "clsPC4GovFormats Remove", formats.Count, 1
Same "clsPC4GovFormats Remove", formats(1).PeriodStartDate, "by reference"
formats.Clear
Same "clsPC4GovFormats Clear", formats.Count, 0
Same "clsPC4GovFormats a member outlives its place", fields.PeriodStartDate, "PeriodStartDate now"
For Each key In formats
  Same "clsPC4GovFormats for each of nothing", 1, 0
Next

Set slots = CreateObject("Fiscalon.clsPC4FreeFormats")
Same "clsPC4FreeFormats Count", slots.Count, 0
slots.Clear
Same "clsPC4FreeFormats Clear of nothing", slots.Count, 0
Set slot = slots.Add("FieldNum", "FieldValue", "key")
Same "clsPC4FreeFormat FieldNum", slot.FieldNum, "FieldNum"
slot.FieldNum = "FieldNum now"
Same "clsPC4FreeFormat FieldNum", slot.FieldNum, "FieldNum now"
Same "clsPC4FreeFormat FieldValue", slot.FieldValue, "FieldValue"
slot.FieldValue = "FieldValue now"
Same "clsPC4FreeFormat FieldValue", slot.FieldValue, "FieldValue now"
slots.Add
name = "by reference"
slots.Add name
Same "clsPC4FreeFormats Count", slots.Count, 3
Same "clsPC4FreeFormats Item", slots.Item(1) Is slot, True
Same "clsPC4FreeFormats default member", slots("key") Is slot, True
index = 1
Same "clsPC4FreeFormats position by reference", slots(index) Is slot, True
Same "clsPC4FreeFormats position as a float", slots(1.0) Is slot, True
name = "key"
Same "clsPC4FreeFormats key by reference", slots.Item(name) Is slot, True
Same "clsPC4FreeFormats text by reference", slots(3).FieldNum, "by reference"
walked = ""
For Each key In slots
  walked = walked & key.FieldNum & ";"
Next
Same "clsPC4FreeFormats for each", walked, "FieldNum now;;by reference;"
Set key = slots.Item(4)
Raised "clsPC4FreeFormats unknown position", 9, "Fiscalon", "Subscript out of range"
Set key = slots.Item(0)
Raised "clsPC4FreeFormats position 0", 9, "Fiscalon", "Subscript out of range"
slots.Remove 4
Raised "clsPC4FreeFormats Remove of an unknown position", 9, "Fiscalon", "Subscript out of range"
Set key = slots.Item("no key")
Raised "clsPC4FreeFormats unknown key", 5, "Fiscalon", InvalidCall
Set key = slots.Item("")
Raised "clsPC4FreeFormats empty key", 5, "Fiscalon", InvalidCall
slots.Remove "no key"
Raised "clsPC4FreeFormats Remove of an unknown key", 5, "Fiscalon", InvalidCall
For Each name In Array(Empty, Null, True, Array(1))
  Set key = slots.Item(name)
  Raised "clsPC4FreeFormats what is no key", 13, "Fiscalon", "Type mismatch"
Next
Set key = slots.Item(slots)
Raised "clsPC4FreeFormats an object is no key", 13, "Fiscalon", "Type mismatch"
Set key = Nothing
Set key = slots.Add("FieldNum", "FieldValue", "key")
Raised "clsPC4FreeFormats taken key", 457, "Fiscalon", KeyTaken
Same "clsPC4FreeFormats Add of a taken key", key Is Nothing, True
slots.Remove 2
slots.Remove "key"
Same "clsPC4FreeFormats Remove", slots.Count, 1
Same "clsPC4FreeFormats Remove", slots(1).FieldNum, "by reference"
slots.Clear
Same "clsPC4FreeFormats Clear", slots.Count, 0
Same "clsPC4FreeFormats a member outlives its place", slot.FieldNum, "FieldNum now"
For Each key In slots
  Same "clsPC4FreeFormats for each of nothing", 1, 0
Next

Set payment.PC4Records = records
Same "a host's records", payment.PC4Records Is records, True
Set payment.PC4Records = formats
RaisedNumber "records of another class", 13
Set payment.PC4Records = CreateObject("Scripting.Dictionary")
RaisedNumber "a foreign object", 13
Same "records after a refusal", payment.PC4Records Is records, True
Set payment.PC4Records = Nothing
Same "no records", payment.PC4Records Is Nothing, True

Set fields = CreateObject("Fiscalon.clsPC4GovFormat")
Same "clsPC4GovFormat", fields.ContactName, ""
Set slot = CreateObject("Fiscalon.clsPC4FreeFormat")
Same "clsPC4FreeFormat", slot.FieldNum, ""
Set record = Nothing
Set record = CreateObject("Fiscalon.PC4")
RaisedNumber "PC4 is not made by hosts", 429
Same "PC4 is not made by hosts", record Is Nothing, True

Set setup = CreateObject("Fiscalon.Setup")
Same "Language", setup.Language, "en"
setup.Language = "fr"
Same "Language", setup.Language, "fr"
Same "Language is the process's", CreateObject("Fiscalon.Setup").Language, "fr"
setup.Language = "tlh"
RaisedNumber "a language that is not there", 5
Same "Language after a refusal", setup.Language, "fr"
setup.Language = "en"

Set check = CreateObject("Fiscalon.clsValidateAddInfo")
Same "ScreenCode", check.ScreenCode, ""
check.ScreenCode = "ScreenCode!"
Same "ScreenCode", check.ScreenCode, "ScreenCode!"
Same "NumberOfFields", check.NumberOfFields, ""
check.NumberOfFields = "NumberOfFields!"
Same "NumberOfFields", check.NumberOfFields, "NumberOfFields!"
Same "BillerCode", check.BillerCode, ""
check.BillerCode = "BillerCode!"
Same "BillerCode", check.BillerCode, "BillerCode!"
Same "BillerName", check.BillerName, ""
check.BillerName = "BillerName!"
Same "BillerName", check.BillerName, "BillerName!"
Same "PaymentDate", check.PaymentDate, ""
check.PaymentDate = "PaymentDate!"
Same "PaymentDate", check.PaymentDate, "PaymentDate!"
Same "InvalidReason", check.InvalidReason, ""
check.InvalidReason = "InvalidReason!"
Same "InvalidReason", check.InvalidReason, "InvalidReason!"
check.PaymentAmount = 12345
Same "PaymentAmount", check.PaymentAmount, "123.45"
check.PlayByPlayEnabled = False
Same "PlayByPlayEnabled", Err.Number, 0
name = check.PlayByPlayEnabled
RaisedNumber "PlayByPlayEnabled is written alone", 438
Same "PC4Records", check.PC4Records Is Nothing, True
check.ScreenCode = "03"
Same "IsInfoValid without records", check.IsInfoValid, False
Same "InvalidReason", check.InvalidReason, "Error 91 - Object variable or With block variable not set"
Set check.PC4Records = records
Same "PC4Records", check.PC4Records Is records, True
Same "IsInfoValid of no record", check.IsInfoValid, False
Same "InvalidReason", check.InvalidReason, "Record for required fields is missing"
check.ScreenCode = "04"
Same "IsInfoValid of another screen", check.IsInfoValid, False
Same "InvalidReason", check.InvalidReason, "Invalid or not supported Screen Type"
Set check.PC4GovFormatRecords = formats
Set check.PC4FreeFormatRecords = slots
Same "PC4GovFormatRecords", check.PC4GovFormatRecords Is formats, True
Same "PC4FreeFormatRecords", check.PC4FreeFormatRecords Is slots, True
Set check.PC4FreeFormatRecords = formats
RaisedNumber "working records of another class", 13
check.ScreenCode = "03"
records.Add "", "", "PC40001F01000000000000012345"
Same "IsInfoValid", check.IsInfoValid, True
Same "InvalidReason", check.InvalidReason, ""
Same "PC4GovFormatRecords after a check", check.PC4GovFormatRecords Is Nothing, True
Same "PC4FreeFormatRecords after a check", check.PC4FreeFormatRecords Is Nothing, True
check.PlayByPlayEnabled = True
Set check.PC4Records = Nothing
payment.MainPath = "C:\no such folder"
index = check.IsInfoValid
Raised "a log that cannot be written", 76, "Fiscalon", "Path not found"

WScript.Echo looked & " looked at, " & wrong & " wrong"
