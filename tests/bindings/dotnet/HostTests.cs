// A host in C# that does what hosts do, and what they should not. Each test is a routine; what it finds wrong it throws.
using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Reflection;
using System.Runtime.InteropServices;
using System.Threading;
using Fiscalon;

internal static class HostTests
{
    private static void Equal<T>(T wanted, T seen, string what = "")
    {
        if (!EqualityComparer<T>.Default.Equals(wanted, seen))
            throw new Exception($"{what}: expected <{wanted}>, seen <{seen}>");
    }

    private static TError Raises<TError>(Action act, string what = "") where TError : Exception
    {
        try
        {
            act();
        }
        catch (TError error)
        {
            return error;
        }
        throw new Exception($"{what}: no {typeof(TError).Name} comes");
    }

    private static FiscalonException Fails(int number, Action act)
    {
        var error = Raises<FiscalonException>(act, $"error {number}");
        Equal(number, error.Number, error.Message);
        return error;
    }

    private static Levyra Payment() => new Levyra
    {
        CompName = "Summit Levies", PaidAmount = "12345", PaidDate = "06152026", EnterName = "Hélène Côté",
        EnterTitle = "Clerk", SeqNumber = "0001"
    };

    // A taxation year end, whose sixth digit moves on to the amount, and OK.
    private static void Accept(Form form)
    {
        form.Type("202512");
        form.Type("12345");
        Equal(false, form.Chosen);
        form.Click("cmdOK");
        Equal(true, form.Chosen);
    }

    private static void Play(Action<Form> onForm) => FiscalonModule.UseScriptedUser(new ScriptedUser { OnForm = onForm });

    // ---- What hosts do

    public static void CollectsAPayment()
    {
        Play(Accept);
        using (var payment = Payment())
        {
            Equal("123.45", payment.PaidAmount);
            Equal(null, payment.PC4Records);
            Equal(true, payment.ShowLevyraScreen("15"));
            var records = payment.PC4Records.Select(record => record.Description).ToList();
            Equal(2, records.Count);
            Equal("PC40001T" + new string(' ', 16) + "202512  " + new string(' ', 8) + "Hélène Côté".PadRight(30) +
                "Clerk".PadRight(20) + new string(' ', 70), records[0]);
            Equal("PC40001F0100000000000001234502000000000000000000" + "0300000000000000000004000000000000000000"
                .PadRight(112), records[1]);
            Equal(true, ReferenceEquals(payment.PC4Records, payment.PC4Records), "one object for one collection");
        }
    }

    public static void TellsACancelledScreen()
    {
        Play(form => form.PressKey("Escape"));
        using (var payment = Payment())
        {
            Equal(false, payment.ShowLevyraScreen("15"));
            Equal(null, payment.PC4Records);
        }
    }

    public static void WritesRecordsToAFile()
    {
        string path = Path.GetTempFileName();
        try
        {
            Play(Accept);
            using (var payment = Payment())
            {
                payment.GovFilename = path;
                payment.WriteFile = HostBoolean.True;
                Equal(true, payment.ShowLevyraScreen("15"));
                Equal(null, payment.PC4Records);
                string written = FiscalonModule.TextOf(File.ReadAllBytes(path));
                Equal(2, written.Split('\n').Length - 1);
                Equal(true, written.StartsWith("\"PC40001T") && written.Contains("Hélène Côté") && written.EndsWith("\"\r\n"));
            }
        }
        finally
        {
            File.Delete(path);
        }
    }

    public static void SeesWhatAUserSees()
    {
        var handlers = new List<string>();
        Form kept = null;
        FiscalonModule.UseScriptedUser(new ScriptedUser
        {
            OnHandler = handlers.Add,
            OnForm = form =>
            {
                kept = form;
                Equal("frmDueDateAmount", form.Name);
                Equal(true, form.IsUp);
                Equal(true, form.Title.Length > 0);
                Equal("", form.Status);
                Equal("txtRemittancePeriod", form.Focus);
                Control amount = form.ControlNamed("txtAmountPayable");
                Equal(ControlKind.TextField, amount.Kind);
                Equal(true, amount.Visible && amount.Enabled && !amount.Locked && !amount.Checked);
                Equal(amount.Name, form.Controls.Single(control => control.Name == "txtAmountPayable").Name);
                form.Paste("202512");
                Equal("202512", form.ControlNamed("txtRemittancePeriod").Text);
                Fails(5, () => form.ControlNamed("none"));
                Fails(5, () => form.Click("none"));
                Fails(5, () => form.Row("txtRemittancePeriod", 0));
                Fails(5, () => form.Choose("txtRemittancePeriod", 0));
                Fails(5, () => form.PressKey("Hyper"));
                Fails(5, () => form.Close((CloseReason)77));
                form.PressMouse("txtAmountPayable");
                Equal("txtAmountPayable", form.Focus);
                form.Close(CloseReason.CloseBox);
                Equal(false, form.IsUp);
                Fails(ErrorNumber.FormClosed, () => form.Type("1"));
            }
        });
        using (var payment = Payment()) payment.ShowLevyraScreen("15");
        Equal(true, handlers.Contains("txtRemittancePeriod_Change"));
        Equal(false, kept.IsUp);
        Fails(ErrorNumber.FormClosed, () => kept.Type("1"));
        Fails(ErrorNumber.FormClosed, () => Equal("", kept.Title));
    }

    public static void PicksRowsOfLists()
    {
        Play(form =>
        {
            form.Type("202606");
            form.Type("12345");
            for (int i = 0; i < 5; ++i) form.PressKey("Enter");
            Control list = form.ControlNamed("cmbRemittanceType");
            Equal(ControlKind.DropDownList, list.Kind);
            form.Choose("cmbRemittanceType", list.Items - 1);
            Equal("Twice Monthly (2nd remittance)", form.Row("cmbRemittanceType", list.Items - 1));
            Equal("Twice Monthly (2nd remittance)", form.ControlNamed("cmbRemittanceType").Text);
            Fails(9, () => form.Row("cmbRemittanceType", list.Items));
            Fails(9, () => form.Choose("cmbRemittanceType", -1));
            form.Click("cmdCancel");
        });
        using (var payment = Payment())
        {
            payment.CompCode = "001052";
            Equal(false, payment.ShowLevyraScreen("20"));
        }
    }

    public static void AnswersBoxes()
    {
        var boxes = new List<Box>();
        int beeps = 0;
        FiscalonModule.UseScriptedUser(new ScriptedUser
        {
            OnForm = form =>
            {
                form.Type("202613");
                form.Type("\t");
                form.Click("cmdCancel");
            },
            OnBox = box =>
            {
                boxes.Add(box);
                return box.DefaultAnswer;
            },
            OnBeep = () => ++beeps
        });
        using (var payment = Payment()) Equal(false, payment.ShowLevyraScreen("15"));
        Equal(true, boxes.Count > 0, "a month that is none is told");
        Equal(BoxStyle.Critical, boxes[0].Style);
        Equal(Buttons.Ok, boxes[0].Buttons);
        Equal(Answer.Ok, boxes[0].DefaultAnswer);
        Equal(true, boxes[0].Text.Length > 0);
    }

    public static void HearsOfHelp()
    {
        string asked = null;
        FiscalonModule.UseScriptedUser(new ScriptedUser
        {
            OnForm = form =>
            {
                form.Click("cmdHelp");
                form.Click("cmdCancel");
            },
            OnHelp = (file, context) => asked = file
        });
        using (var payment = Payment()) Equal(false, payment.ShowLevyraScreen("08"));
        Equal(true, asked?.Length > 0, asked);
    }

    public static void ChecksAPayment()
    {
        using (var records = new PC4s())
        using (var check = new clsValidateAddInfo { ScreenCode = "03", PaymentAmount = "12345" })
        {
            Equal(false, check.IsInfoValid());
            Equal("Error91 - Object variable or With block variable not set", check.InvalidReason.Replace(" 91", "91"));
            records.Add("", "", "PC40001T                                Jane Doe".PadRight(160));
            records.Add("", "", ("PC40001F" + "01000000000000012345" + "0220260531          " + "03000000000000500000" +
                "04000000000000000012").PadRight(160));
            check.PC4Records = records;
            Equal(true, ReferenceEquals(records, check.PC4Records));
            Equal(true, check.IsInfoValid(), check.InvalidReason);
            Equal("", check.InvalidReason);
            check.PaymentAmount = "99999";
            Equal(false, check.IsInfoValid());
            Equal("Field 01 Amount of Payment is not equal to amount to be paid", check.InvalidReason);
            Equal(null, check.PC4GovFormatRecords);
            check.PC4Records = null;
            Equal(null, check.PC4Records);
        }
    }

    // Three payments: the first is good, the second pays another amount and has cents in its payroll, the third is of a
    // screen that is not judged.
    private static readonly byte[] payments = FiscalonModule.BytesOf(
        "seq,screen,biller,amount\r\n0001,03,,12345\r\n0002,03,,12345\r\n0003,15,,12345\r\n");
    private static readonly byte[] recordLines = FiscalonModule.BytesOf(
        RecordsOf("0001", "12345") + RecordsOf("0002", "12300", "500001") + RecordsOf("0003", "12345"));

    private static string RecordsOf(string seq, string amount, string payroll = "500000") =>
        $"\"{$"PC4{seq}T".PadRight(40) + "Jane Doe",-160}\"\r\n\"" +
        ($"PC4{seq}F01{amount.PadLeft(18, '0')}0220260531          03{payroll.PadLeft(18, '0')}" +
            "04000000000000000012").PadRight(160) + "\"\r\n";

    public static void JudgesBatches()
    {
        var batch = new Batch(payments, recordLines) { WantsFaults = true, WantsLines = true, Jobs = 2 };
        var verdicts = batch.Verdicts().ToList();
        Equal("0001,0002,0003", string.Join(",", verdicts.Select(verdict => verdict.Seq)));
        Equal("True,False,False", string.Join(",", verdicts.Select(verdict => verdict.Valid)));
        Equal("2,3,4", string.Join(",", verdicts.Select(verdict => verdict.Row)));
        Equal("0,3,5", string.Join(",", verdicts.Select(verdict => verdict.Line)));
        Equal("03,03,15", string.Join(",", verdicts.Select(verdict => verdict.Screen)));
        Equal("", verdicts[0].Reason);
        Equal(verdicts[1].Reason, string.Join(", ", verdicts[1].Faults.Select(fault => fault.Message)));
        Equal("01,03", string.Join(",", verdicts[1].Faults.Select(fault => fault.Field)));
        Equal("4,4", string.Join(",", verdicts[1].Faults.Select(fault => fault.Line)));
        Equal("000000000000012300", verdicts[1].Faults[0].Value);
        Equal(true, verdicts[1].Faults.All(fault => fault.Code.Length > 0 && fault.Name.Length > 0));
        Equal(true, verdicts[2].Lines.Contains("PC40003F"));
        BatchCounts counts = new Batch(payments, recordLines).Validate();
        Equal((3L, 2L, (long)recordLines.Length), (counts.Payments, counts.Invalid, counts.Bytes));
        var parts = new[] { 1, 2 }.SelectMany(part => new Batch(payments, recordLines) { Part = part, Parts = 2 }.Verdicts());
        Equal("0001,0002,0003", string.Join(",", parts.Select(verdict => verdict.Seq)));
        var bad = new Batch(payments, recordLines) { WantsValid = false }.Verdicts().Select(verdict => verdict.Seq);
        Equal("0002,0003", string.Join(",", bad));
    }

    public static void EndsABatchWhereBadPaymentsAreFarBetween()
    {
        const int count = 60000;
        var numbers = Enumerable.Range(0, count).ToList();
        var rows = "seq,screen,biller,amount\r\n" + string.Concat(numbers.Select(each => $"{each % 10000:D4},03,,12345\r\n"));
        var records = string.Concat(numbers.Select(each => RecordsOf($"{each % 10000:D4}", each == 0 ? "12300" : "12345")));
        Thread taker = Thread.CurrentThread;
        var taken = new ManualResetEventSlim();
        long most = 0;
        var batch = new Batch(FiscalonModule.BytesOf(rows), FiscalonModule.BytesOf(records))
        {
            WantsValid = false,
            Jobs = 1,
            OnProgress = counts =>
            {
                most = counts.Payments;
                // Whoever has taken a verdict waits for one thing only: that the batch ends.
                SpinWait.SpinUntil(() => taken.IsSet && taker.ThreadState.HasFlag(ThreadState.WaitSleepJoin), 10000);
            }
        };
        foreach (Verdict verdict in batch.Verdicts())
        {
            Equal(2L, verdict.Row);
            taken.Set();
            break;
        }
        Equal(true, most < count, $"it ends after {most} payments");
        batch.OnProgress = null;
        Equal((long)count, batch.Validate().Payments, "all that there are");
    }

    public static void JudgesOnePaymentByItself()
    {
        using (var judge = new Judge())
        {
            var records = new[]
            {
                "PC40001T                                Jane Doe".PadRight(160),
                ("PC40001F01000000000000012345" + "0220260531          " + "03000000000000500000" + "04000000000000000012")
                    .PadRight(160)
            };
            Equal(true, judge.Payment("03", "", 12345, records).Valid);
            Verdict verdict = judge.Payment("03", "", 1, records, true);
            Equal("Field 01 Amount of Payment is not equal to amount to be paid", verdict.Reason);
            Equal(2L, verdict.Faults.Single().Line);
            Equal(false, judge.Payment("03", "", 12345, new string[0]).Valid);
        }
    }

    public static void WalksOverCollections()
    {
        using (var records = new PC4s())
        {
            records.Add("1", "2", "first", "key");
            records.Add("3", "4", "second");
            Equal("first", records[0].Description);
            Equal("second", ((IReadOnlyList<PC4>)records)[1].Description);
            Fails(9, () => Equal(null, records[2]));
            Fails(9, () => Equal(null, records[-1]));
            Fails(9, () => records.Item(long.MaxValue));
            Fails(9, () => records.Remove(0));
            var seen = new List<string>();
            foreach (PC4 record in records)
            {
                if (seen.Count == 0) records.Clear();
                seen.Add(record.Description);
            }
            Equal("first,second", string.Join(",", seen), "the members as they were when it began");
            Equal(0, records.Count);
            using (var others = new PC4s()) Equal(false, records.IsSame(others));
            Equal(true, records.IsSame(records));
        }
        using (var formats = new clsPC4FreeFormats())
        using (clsPC4FreeFormat slot = formats.Add("01", "000000000000012345"))
        {
            slot.FieldValue = "other";
            Equal("other", formats.Item(1).FieldValue);
            formats.Clear();
            Equal("other", slot.FieldValue, "a member outlives its place");
        }
    }

    // ---- What they should not

    public static void RefusesTextsThatAreNone()
    {
        using (var payment = Payment())
        {
            Fails(ErrorNumber.NullPointer, () => payment.EnterName = null);
            foreach (string text in new[] { "\ud800", "a\udc00", "\ud83d", "a\0b", "\0", "中", "😀", "\u0080" })
                Fails(ErrorNumber.Text, () => payment.EnterName = text);
            Equal("Hélène Côté", payment.EnterName, "what failed has changed nothing");
            Fails(ErrorNumber.Text, () => payment.ShowLevyraScreen("1\0"));
            Fails(ErrorNumber.NullPointer, () => payment.ShowLevyraScreen(null));
            Fails(ErrorNumber.Text, () => Levyra.MainPath = "\ud800");
            Fails(ErrorNumber.Text, () => FiscalonModule.BytesOf("中"));
            Fails(ErrorNumber.Text, () => FiscalonModule.BytesOf("\ud800"));
        }
        using (var records = new PC4s())
        {
            Fails(ErrorNumber.NullPointer, () => records.Add("", "", null));
            Fails(ErrorNumber.Text, () => records.Add("", "", "", "\udfff"));
            Fails(ErrorNumber.NullPointer, () => records.Item(null));
            Equal(0, records.Count);
        }
        Equal(3, FiscalonModule.BytesOf("é\0€").Length, "zeros count where sizes do");
        Equal("é\0€", FiscalonModule.TextOf(new byte[] { 0xE9, 0, 0x80 }));
        Equal("", FiscalonModule.TextOf(new byte[0]));
        Equal(0, FiscalonModule.BytesOf("").Length);
    }

    public static void RefusesNullsAndWhatIsDisposedOf()
    {
        Raises<ArgumentNullException>(() => FiscalonModule.UseScriptedUser(null));
        Raises<ArgumentNullException>(() => FiscalonModule.BytesOf(null));
        Raises<ArgumentNullException>(() => FiscalonModule.TextOf(null));
        Raises<ArgumentNullException>(() => new Batch((string)null, ""));
        Raises<ArgumentNullException>(() => new Batch(new byte[0], null));
        using (var judge = new Judge()) Raises<ArgumentNullException>(() => judge.Payment("03", "", 1, null));
        using (var records = new PC4s()) Raises<ArgumentNullException>(() => records.IsSame(null));
        var payment = Payment();
        payment.Dispose();
        payment.Dispose();
        Raises<ObjectDisposedException>(() => payment.EnterName = "x");
        Raises<ObjectDisposedException>(() => Equal("", payment.EnterName));
        Raises<ObjectDisposedException>(() => payment.ShowLevyraScreen("15"));
        var gone = new PC4s();
        gone.Dispose();
        Raises<ObjectDisposedException>(() => gone.Add("", "", ""));
        Raises<ObjectDisposedException>(() => gone.ToList());
        using (var check = new clsValidateAddInfo()) Raises<ObjectDisposedException>(() => check.PC4Records = gone);
    }

    public static void HandsOutWhatRoutinesThrow()
    {
        using (var payment = Payment())
        {
            Play(form => throw new InvalidOperationException("of the form"));
            Equal("of the form", Raises<InvalidOperationException>(() => payment.ShowLevyraScreen("15")).Message);
            FiscalonModule.UseScriptedUser(new ScriptedUser
            {
                OnForm = form =>
                {
                    form.Type("202613");
                    form.Type("\t");
                },
                OnBox = box => throw new InvalidOperationException("of the box")
            });
            Equal("of the box", Raises<InvalidOperationException>(() => payment.ShowLevyraScreen("15")).Message);
            FiscalonModule.UseScriptedUser(new ScriptedUser { OnHandler = name => throw new InvalidOperationException(name) });
            Raises<InvalidOperationException>(() => payment.ShowLevyraScreen("15"));
            FiscalonModule.UseScriptedUser(new ScriptedUser
            {
                OnForm = form =>
                {
                    form.Type("202613");
                    form.Type("\t");
                },
                OnBox = box => (Answer)9
            });
            Fails(ErrorNumber.Callback, () => payment.ShowLevyraScreen("15"));
            // And the library goes on.
            FiscalonModule.ResetModule();
            Play(Accept);
            Equal(true, payment.ShowLevyraScreen("15"));
        }
        var batch = new Batch(payments, recordLines);
        Equal("enough", Raises<InvalidOperationException>(
            () => batch.Validate(verdict => throw new InvalidOperationException("enough"))).Message);
        batch.OnProgress = counts => throw new InvalidOperationException("progress");
        foreach (Verdict verdict in new Batch(payments, recordLines).Verdicts()) break;
    }

    public static void TellsWhichThreadMayShow()
    {
        Play(form =>
        {
            FiscalonException other = null;
            var thread = new Thread(() =>
            {
                try
                {
                    new Levyra().Dispose();
                }
                catch (FiscalonException error)
                {
                    other = error;
                }
            });
            thread.Start();
            thread.Join();
            Equal(ErrorNumber.Thread, other?.Number ?? 0, "while a screen is open on this one");
            using (var second = Payment()) Fails(400, () => second.ShowLevyraScreen("15"));
            Fails(ErrorNumber.Busy, FiscalonModule.ResetModule);
            form.Click("cmdCancel");
        });
        using (var payment = Payment())
        {
            Equal(false, payment.ShowLevyraScreen("15"));
            FiscalonException error = null;
            var thread = new Thread(() => error = Raises<FiscalonException>(() => payment.ShowLevyraScreen("15")));
            thread.Start();
            thread.Join();
            Equal(ErrorNumber.Thread, error.Number);
        }
    }

    public static void NamesWhatIsMissing()
    {
        FiscalonModule.UseFrontEnd(null);
        using (var payment = Payment())
        {
            Equal("Fiscalon.ShowLevyraScreen", Fails(91, () => payment.ShowLevyraScreen("15")).Source);
            Equal("Fiscalon.ShowLevyraScreen", Fails(ErrorNumber.InvalidScreenType, () => payment.ShowLevyraScreen("99")).Source);
        }
        Fails(ErrorNumber.FrontEnd, () => FiscalonModule.UseFrontEnd("gtk"));
        Fails(ErrorNumber.FrontEnd, () => FiscalonModule.FrontEndHindrance("gtk"));
        Equal("", FiscalonModule.FrontEndHindrance("scripted"));
        FiscalonModule.UseFrontEndFolder("/nowhere");
        Equal(true, FiscalonModule.FrontEndHindrance("qt").Length > 0);
        Fails(ErrorNumber.FrontEnd, () => FiscalonModule.UseFrontEnd("qt"));
        FiscalonModule.UseFrontEndFolder(null);
        Fails(5, () => FiscalonModule.UseLocale("de-DE"));
        Fails(5, () => FiscalonModule.UseLanguage("de"));
        Fails(5, () => FiscalonModule.UseFixedClock(new DateTime(99, 1, 1)));
        Fails(6, () => Levyra.PlayByPlayEnabled = 32768);
        Fails(6, () => Levyra.SessionNumber = 1e10);
        var missing = Raises<BatchException>(() => new Batch("/nowhere/p.csv", "/nowhere/r.pc4").Validate());
        Equal(ErrorNumber.Batch, missing.Number);
        Equal("/nowhere/p.csv", missing.Problems[0].File);
        Raises<BatchException>(() => new Batch("/nowhere/p.csv", "/nowhere/r.pc4").Verdicts().ToList());
        Fails(5, () => new Batch(payments, recordLines) { Part = -1 }.Validate());
        Equal(true, FiscalonModule.Version.Contains(".") && FiscalonModule.Interface >= 1);
    }

    public static void LivesThroughCollections()
    {
        Play(form =>
        {
            GC.Collect();
            GC.WaitForPendingFinalizers();
            Accept(form);
        });
        for (int i = 0; i < 50; ++i) new Levyra { PaidAmount = "1" };
        GC.Collect();
        GC.WaitForPendingFinalizers();
        using (var payment = Payment()) Equal(true, payment.ShowLevyraScreen("15"));
    }

    // The structs as the interface has them: "STRUCT SIZE", then "  OFFSET" of each member.
    private static void TellLayouts()
    {
        var names = new Dictionary<string, string>
        {
            ["ErrorStruct"] = "fiscalon_error", ["TextStruct"] = "fiscalon_text", ["FaultStruct"] = "fiscalon_fault",
            ["VerdictStruct"] = "fiscalon_verdict", ["CountsStruct"] = "fiscalon_batch_counts",
            ["BatchStruct"] = "fiscalon_batch", ["BoxStruct"] = "fiscalon_box", ["UserStruct"] = "fiscalon_scripted_user",
            ["ControlStruct"] = "fiscalon_control"
        };
        foreach (Type type in typeof(Levyra).Assembly.GetTypes().Where(each => each.Name.EndsWith("Struct")))
        {
            Console.WriteLine($"{names[type.Name]} {Marshal.SizeOf(type)}");
            foreach (FieldInfo field in type.GetFields(BindingFlags.Instance | BindingFlags.NonPublic))
                Console.WriteLine($"  {Marshal.OffsetOf(type, field.Name)}");
        }
    }

    private static int Main(string[] arguments)
    {
        if (arguments.Contains("layouts"))
        {
            TellLayouts();
            return 0;
        }
        int failed = 0;
        foreach (MethodInfo test in typeof(HostTests).GetMethods(BindingFlags.Static | BindingFlags.Public))
        {
            try
            {
                FiscalonModule.ResetModule();
                FiscalonModule.UseLocale("en-CA");
                FiscalonModule.UseFixedClock(new DateTime(2026, 6, 15, 13, 5, 9));
                test.Invoke(null, null);
                Console.WriteLine("ok " + test.Name);
            }
            catch (Exception error)
            {
                ++failed;
                Console.WriteLine("FAILED " + test.Name + ": " + (error.InnerException ?? error));
            }
        }
        return failed;
    }
}
