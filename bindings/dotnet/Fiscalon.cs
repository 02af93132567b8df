// Fiscalon for hosts in C# and all languages of .NET: the payment session, the records that it hands back, the check of
// payments that arrive in bulk, whole batches, and a scripted user for tests. One file over the C interface, to be
// compiled into a program of its own:
//
//     FiscalonModule.UseFrontEnd("qt");
//     using (var payment = new Levyra { PaidAmount = "12345", PaidDate = "06152026", SeqNumber = "0001" })
//       if (payment.ShowLevyraScreen("15"))
//         foreach (var record in payment.PC4Records) Send(record.Description);
//
// Errors are exceptions with a number and a source, as all hosts meet them. Texts are strings; one that is no Unicode,
// or that Windows-1252 has no place for, is error 1003 and never becomes "?". Objects let go of what they stand for
// when they are disposed of or collected. The rules of threads are those of the C interface, in <fiscalon/c.h>.
//
// For Windows it is compiled with the symbol WINDOWS, which projects for that system have by themselves.
using System;
using System.Collections;
using System.Collections.Concurrent;
using System.Collections.Generic;
using System.Runtime.CompilerServices;
using System.Runtime.ExceptionServices;
using System.Runtime.InteropServices;
using System.Text;
using System.Threading;

namespace Fiscalon
{
    /// <summary>The numbers of errors that a host may meet. Those below 1000 are of the library's own rules.</summary>
    public static class ErrorNumber
    {
        /// <summary>An unknown key, or a text that does not fit its columns.</summary>
        public const int InvalidProcedureCall = 5;

        /// <summary>A number beyond its range.</summary>
        public const int Overflow = 6;

        /// <summary>Nothing is leaked; the same call may be made again.</summary>
        public const int OutOfMemory = 7;

        /// <summary>An unknown position.</summary>
        public const int SubscriptOutOfRange = 9;

        /// <summary>A value of another kind.</summary>
        public const int TypeMismatch = 13;

        /// <summary>An older record file is not there any more.</summary>
        public const int FileNotFound = 53;

        /// <summary>The disk is full.</summary>
        public const int DiskFull = 61;

        /// <summary>An older record file can't be deleted.</summary>
        public const int PermissionDenied = 70;

        /// <summary>A file can't be opened.</summary>
        public const int PathFileAccess = 75;

        /// <summary>A folder is missing.</summary>
        public const int PathNotFound = 76;

        /// <summary>No front end is installed.</summary>
        public const int ObjectNotSet = 91;

        /// <summary>The form is being shown already.</summary>
        public const int AlreadyShown = 400;

        /// <summary>A key that is taken.</summary>
        public const int DuplicateKey = 457;

        /// <summary>A screen code that is none.</summary>
        public const int InvalidScreenType = -2147221503;

        /// <summary>Null for a text.</summary>
        public const int NullPointer = 1001;

        /// <summary>An object that is gone.</summary>
        public const int NoHandle = 1002;

        /// <summary>A text that is no Unicode, or that Windows-1252 has no place for.</summary>
        public const int Text = 1003;

        /// <summary>A library of another version.</summary>
        public const int StructSize = 1004;

        /// <summary>Not from this thread.</summary>
        public const int Thread = 1005;

        /// <summary>Not while a screen is open or a batch is being judged.</summary>
        public const int Busy = 1006;

        /// <summary>Not in a child of the process that installed the front end.</summary>
        public const int Forked = 1007;

        /// <summary>No such front end, or not installed, or nothing to show forms on.</summary>
        public const int FrontEnd = 1008;

        /// <summary>A routine of the host's failed.</summary>
        public const int Callback = 1009;

        /// <summary>An act on a form that is no longer up.</summary>
        public const int FormClosed = 1010;

        /// <summary>Files of a batch can't be read or don't line up; no verdict counts.</summary>
        public const int Batch = 1011;

        /// <summary>A defect.</summary>
        public const int Unforeseen = 1012;
    }

    /// <summary>The values of the host's Booleans, which are numbers: True is -1, and only that. WriteFile 1 counts as
    /// False.</summary>
    public static class HostBoolean
    {
        /// <summary>-1.</summary>
        public const int True = -1;

        /// <summary>0.</summary>
        public const int False = 0;
    }

    /// <summary>An error of the library: its number, its source, and its description as the message.</summary>
    public class FiscalonException : Exception
    {
        /// <summary>An error as the library tells it.</summary>
        public FiscalonException(int number, string description, string source) : base(description)
        {
            Number = number;
            Source = source;
        }

        /// <summary>One of <see cref="ErrorNumber"/>.</summary>
        public int Number { get; }
    }

    /// <summary>What keeps a batch from being judged: a file, a line from 1 or 0 for the file as a whole, and
    /// why.</summary>
    public sealed class BatchProblem
    {
        internal BatchProblem(string file, long line, string reason)
        {
            File = file;
            Line = line;
            Reason = reason;
        }

        /// <summary>The file by its name.</summary>
        public string File { get; }

        /// <summary>From 1; 0 where it is the file's own.</summary>
        public long Line { get; }

        /// <summary>Why, in a sentence.</summary>
        public string Reason { get; }
    }

    /// <summary>Files of a batch that can't be read or don't line up: error 1011. No verdict counts.</summary>
    public sealed class BatchException : FiscalonException
    {
        internal BatchException(FiscalonException error, IReadOnlyList<BatchProblem> problems)
            : base(error.Number, error.Message, error.Source) => Problems = problems;

        /// <summary>All that was found.</summary>
        public IReadOnlyList<BatchProblem> Problems { get; }
    }

    /// <summary>Members in their order. Positions of <c>Item</c> and <c>Remove</c> count from 1, as in all languages;
    /// the indexer counts from 0, as .NET does. Each look at a member gives an object of its own for it, and going over
    /// all of them is going over those that there were when it began.</summary>
    public abstract class Collection<TMember> : IReadOnlyList<TMember>, IDisposable where TMember : class
    {
        internal readonly Handle handle;
        private readonly CollectionCalls calls;
        private readonly Func<IntPtr, TMember> wrap;

        internal Collection(IntPtr pointer, CollectionCalls calls, Func<IntPtr, TMember> wrap)
        {
            handle = new Handle(pointer, calls.Destroy);
            this.calls = calls;
            this.wrap = wrap;
        }

        /// <summary>How many members there are.</summary>
        public int Count => handle.Number(calls.Count);

        /// <summary>The member at an index, from 0. Error 9 for one that is none.</summary>
        [IndexerName("At")]
        public TMember this[int index] => Item(index + 1L);

        /// <summary>The member at a position, from 1, which stays what it is when the collection lets it go. Error 9
        /// for one that is none.</summary>
        public TMember Item(long position)
        {
            Call.Check(calls.ItemAt(handle, position, out IntPtr item));
            return wrap(item);
        }

        /// <summary>The member of a key, compared exactly. Error 5 for a key that no member has.</summary>
        public TMember Item(string key)
        {
            Call.Check(calls.ItemOf(handle, Utf8.Bytes(key), out IntPtr item));
            return wrap(item);
        }

        /// <summary>Takes the member at a position out, from 1; those behind it move up. Error 9.</summary>
        public void Remove(long position) => Call.Check(calls.RemoveAt(handle, position));

        /// <summary>Takes the member of a key out. Error 5 for a key that no member has.</summary>
        public void Remove(string key) => Call.Check(calls.RemoveOf(handle, Utf8.Bytes(key)));

        /// <summary>Takes all members out.</summary>
        public void Clear() => Call.Check(calls.Clear(handle));

        /// <summary>Whether two objects stand for one collection.</summary>
        public bool IsSame(Collection<TMember> other)
        {
            Call.Check(calls.IsSame(handle, Call.Of(other, nameof(other)).handle, out int same));
            return same != 0;
        }

        /// <summary>The members as they are now, in order.</summary>
        public IEnumerator<TMember> GetEnumerator()
        {
            var members = new List<TMember>();
            for (int position = 1, last = Count; position <= last; ++position) members.Add(Item(position));
            return members.GetEnumerator();
        }

        IEnumerator IEnumerable.GetEnumerator() => GetEnumerator();

        /// <summary>Lets go of it; who else holds the collection keeps it.</summary>
        public void Dispose() => handle.Dispose();
    }

    /// <summary>One record. For all kinds but invoice rows the whole record stands in the description, without quotes,
    /// and the other two texts are empty. Only <see cref="PC4s.Add"/> makes one.</summary>
    public sealed class PC4 : IDisposable
    {
        private readonly Handle handle;

        internal PC4(IntPtr pointer) => handle = new Handle(pointer, Native.fiscalon_record_destroy);

        /// <summary>The date of an invoice, 8 characters; else empty.</summary>
        public string TheDate
        {
            get => handle.Text(Native.fiscalon_record_get_the_date);
            set => handle.Text(Native.fiscalon_record_set_the_date, value);
        }

        /// <summary>The amount of an invoice in cents, 10 characters; else empty.</summary>
        public string Amount
        {
            get => handle.Text(Native.fiscalon_record_get_amount);
            set => handle.Text(Native.fiscalon_record_set_amount, value);
        }

        /// <summary>The whole record, 160 characters mostly, or the number of an invoice, 27 characters.</summary>
        public string Description
        {
            get => handle.Text(Native.fiscalon_record_get_description);
            set => handle.Text(Native.fiscalon_record_set_description, value);
        }

        /// <summary>Lets go of it; a collection keeps its member.</summary>
        public void Dispose() => handle.Dispose();
    }

    /// <summary>The records of one payment, in order.</summary>
    public sealed class PC4s : Collection<PC4>
    {
        private static readonly CollectionCalls calls = new CollectionCalls
        {
            Count = Native.fiscalon_records_count,
            ItemAt = Native.fiscalon_records_item_at,
            ItemOf = Native.fiscalon_records_item_of,
            RemoveAt = Native.fiscalon_records_remove_at,
            RemoveOf = Native.fiscalon_records_remove_of,
            Clear = Native.fiscalon_records_clear,
            IsSame = Native.fiscalon_records_is_same,
            Destroy = Native.fiscalon_records_destroy
        };

        /// <summary>An empty one.</summary>
        public PC4s() : this(Handle.Made(Native.fiscalon_records_create)) { }

        internal PC4s(IntPtr pointer) : base(pointer, calls, item => new PC4(item)) { }

        /// <summary>Appends a member made of its texts, with a key unless that is null or empty. Error 457 where the
        /// key is taken: nothing is added.</summary>
        public PC4 Add(string theDate, string amount, string description, string key = null)
        {
            Call.Check(Native.fiscalon_records_add(handle, Utf8.Bytes(theDate), Utf8.Bytes(amount),
                Utf8.Bytes(description), Utf8.BytesOrNull(key), out IntPtr added));
            return new PC4(added);
        }
    }

    /// <summary>The fields of a T record.</summary>
    public sealed class clsPC4GovFormat : IDisposable
    {
        private readonly Handle handle;

        /// <summary>A member of no collection.</summary>
        public clsPC4GovFormat() : this(Handle.Made(Native.fiscalon_gov_format_create)) { }

        internal clsPC4GovFormat(IntPtr pointer) => handle = new Handle(pointer, Native.fiscalon_gov_format_destroy);

        /// <summary>Start of the period, 8 characters.</summary>
        public string PeriodStartDate
        {
            get => handle.Text(Native.fiscalon_gov_format_get_period_start_date);
            set => handle.Text(Native.fiscalon_gov_format_set_period_start_date, value);
        }

        /// <summary>End of the period, 8 characters.</summary>
        public string PeriodEndDate
        {
            get => handle.Text(Native.fiscalon_gov_format_get_period_end_date);
            set => handle.Text(Native.fiscalon_gov_format_set_period_end_date, value);
        }

        /// <summary>Due date, 8 characters.</summary>
        public string PeriodDueDate
        {
            get => handle.Text(Native.fiscalon_gov_format_get_period_due_date);
            set => handle.Text(Native.fiscalon_gov_format_set_period_due_date, value);
        }

        /// <summary>8 more characters.</summary>
        public string Filler1
        {
            get => handle.Text(Native.fiscalon_gov_format_get_filler1);
            set => handle.Text(Native.fiscalon_gov_format_set_filler1, value);
        }

        /// <summary>The person entering, 30 characters.</summary>
        public string ContactName
        {
            get => handle.Text(Native.fiscalon_gov_format_get_contact_name);
            set => handle.Text(Native.fiscalon_gov_format_set_contact_name, value);
        }

        /// <summary>That person's title, 20 characters.</summary>
        public string ContactTitle
        {
            get => handle.Text(Native.fiscalon_gov_format_get_contact_title);
            set => handle.Text(Native.fiscalon_gov_format_set_contact_title, value);
        }

        /// <summary>10 more characters.</summary>
        public string Filler2
        {
            get => handle.Text(Native.fiscalon_gov_format_get_filler2);
            set => handle.Text(Native.fiscalon_gov_format_set_filler2, value);
        }

        /// <summary>Lets go of it; a collection keeps its member.</summary>
        public void Dispose() => handle.Dispose();
    }

    /// <summary>T records taken apart.</summary>
    public sealed class clsPC4GovFormats : Collection<clsPC4GovFormat>
    {
        private static readonly CollectionCalls calls = new CollectionCalls
        {
            Count = Native.fiscalon_gov_formats_count,
            ItemAt = Native.fiscalon_gov_formats_item_at,
            ItemOf = Native.fiscalon_gov_formats_item_of,
            RemoveAt = Native.fiscalon_gov_formats_remove_at,
            RemoveOf = Native.fiscalon_gov_formats_remove_of,
            Clear = Native.fiscalon_gov_formats_clear,
            IsSame = Native.fiscalon_gov_formats_is_same,
            Destroy = Native.fiscalon_gov_formats_destroy
        };

        /// <summary>An empty one.</summary>
        public clsPC4GovFormats() : this(Handle.Made(Native.fiscalon_gov_formats_create)) { }

        internal clsPC4GovFormats(IntPtr pointer) : base(pointer, calls, item => new clsPC4GovFormat(item)) { }

        /// <summary>Appends a member made of its texts, with a key unless that is null or empty. Error 457 where the
        /// key is taken: nothing is added.</summary>
        public clsPC4GovFormat Add(string periodStartDate, string periodEndDate, string periodDueDate, string filler1,
            string contactName, string contactTitle, string filler2, string key = null)
        {
            Call.Check(Native.fiscalon_gov_formats_add(handle, Utf8.Bytes(periodStartDate), Utf8.Bytes(periodEndDate),
                Utf8.Bytes(periodDueDate), Utf8.Bytes(filler1), Utf8.Bytes(contactName), Utf8.Bytes(contactTitle),
                Utf8.Bytes(filler2), Utf8.BytesOrNull(key), out IntPtr added));
            return new clsPC4GovFormat(added);
        }
    }

    /// <summary>One of the four slots of an F record.</summary>
    public sealed class clsPC4FreeFormat : IDisposable
    {
        private readonly Handle handle;

        /// <summary>A member of no collection.</summary>
        public clsPC4FreeFormat() : this(Handle.Made(Native.fiscalon_free_format_create)) { }

        internal clsPC4FreeFormat(IntPtr pointer) => handle = new Handle(pointer, Native.fiscalon_free_format_destroy);

        /// <summary>The field's number, 2 characters.</summary>
        public string FieldNum
        {
            get => handle.Text(Native.fiscalon_free_format_get_field_num);
            set => handle.Text(Native.fiscalon_free_format_set_field_num, value);
        }

        /// <summary>Its value, 18 characters.</summary>
        public string FieldValue
        {
            get => handle.Text(Native.fiscalon_free_format_get_field_value);
            set => handle.Text(Native.fiscalon_free_format_set_field_value, value);
        }

        /// <summary>Lets go of it; a collection keeps its member.</summary>
        public void Dispose() => handle.Dispose();
    }

    /// <summary>The slots of F records.</summary>
    public sealed class clsPC4FreeFormats : Collection<clsPC4FreeFormat>
    {
        private static readonly CollectionCalls calls = new CollectionCalls
        {
            Count = Native.fiscalon_free_formats_count,
            ItemAt = Native.fiscalon_free_formats_item_at,
            ItemOf = Native.fiscalon_free_formats_item_of,
            RemoveAt = Native.fiscalon_free_formats_remove_at,
            RemoveOf = Native.fiscalon_free_formats_remove_of,
            Clear = Native.fiscalon_free_formats_clear,
            IsSame = Native.fiscalon_free_formats_is_same,
            Destroy = Native.fiscalon_free_formats_destroy
        };

        /// <summary>An empty one.</summary>
        public clsPC4FreeFormats() : this(Handle.Made(Native.fiscalon_free_formats_create)) { }

        internal clsPC4FreeFormats(IntPtr pointer) : base(pointer, calls, item => new clsPC4FreeFormat(item)) { }

        /// <summary>Appends a member made of its texts, with a key unless that is null or empty. Error 457 where the
        /// key is taken: nothing is added.</summary>
        public clsPC4FreeFormat Add(string fieldNum, string fieldValue, string key = null)
        {
            Call.Check(Native.fiscalon_free_formats_add(handle, Utf8.Bytes(fieldNum), Utf8.Bytes(fieldValue),
                Utf8.BytesOrNull(key), out IntPtr added));
            return new clsPC4FreeFormat(added);
        }
    }

    /// <summary>The context of one payment, and the call that asks the user for the rest. One object may serve any
    /// number of payments; what is not set again keeps its value.</summary>
    public sealed class Levyra : IDisposable
    {
        private readonly Handle handle;
        private PC4s records;

        /// <summary>Asks the user's locale for its decimal separator, which decides for the whole process whether a
        /// typed amount means cents.</summary>
        public Levyra() =>
            handle = new Handle(Handle.Made(Native.fiscalon_payment_create), Native.fiscalon_payment_destroy);

        /// <summary>The host's customer number. The error log names it from then on.</summary>
        public string ZelmorNumber
        {
            get => handle.Text(Native.fiscalon_payment_get_zelmor_number);
            set => handle.Text(Native.fiscalon_payment_set_zelmor_number, value);
        }

        /// <summary>Biller code, such as "001052".</summary>
        public string CompCode
        {
            get => handle.Text(Native.fiscalon_payment_get_comp_code);
            set => handle.Text(Native.fiscalon_payment_set_comp_code, value);
        }

        /// <summary>Biller name, shown on the screens.</summary>
        public string CompName
        {
            get => handle.Text(Native.fiscalon_payment_get_comp_name);
            set => handle.Text(Native.fiscalon_payment_set_comp_name, value);
        }

        /// <summary>Kept for the host; no screen receives it.</summary>
        public string AccountNumber
        {
            get => handle.Text(Native.fiscalon_payment_get_account_number);
            set => handle.Text(Native.fiscalon_payment_set_account_number, value);
        }

        /// <summary>The amount of the payment. Written in cents ("12345"), read back in dollars ("123.45"). Error 6 for
        /// a number beyond all floats.</summary>
        public string PaidAmount
        {
            get => handle.Text(Native.fiscalon_payment_get_paid_amount);
            set => handle.Text(Native.fiscalon_payment_set_paid_amount, value);
        }

        /// <summary>Payment date: month, day, year in 8 digits.</summary>
        public string PaidDate
        {
            get => handle.Text(Native.fiscalon_payment_get_paid_date);
            set => handle.Text(Native.fiscalon_payment_set_paid_date, value);
        }

        /// <summary>How many items the generic remittance screen collects, "1" to "12".</summary>
        public string NumberOfInfoCollect
        {
            get => handle.Text(Native.fiscalon_payment_get_number_of_info_collect);
            set => handle.Text(Native.fiscalon_payment_set_number_of_info_collect, value);
        }

        /// <summary>Full path of the record file.</summary>
        public string GovFilename
        {
            get => handle.Text(Native.fiscalon_payment_get_gov_filename);
            set => handle.Text(Native.fiscalon_payment_set_gov_filename, value);
        }

        /// <summary>The person entering, at most 30 characters: a longer one fails the output.</summary>
        public string EnterName
        {
            get => handle.Text(Native.fiscalon_payment_get_enter_name);
            set => handle.Text(Native.fiscalon_payment_set_enter_name, value);
        }

        /// <summary>That person's title, at most 20 characters: a longer one fails the output.</summary>
        public string EnterTitle
        {
            get => handle.Text(Native.fiscalon_payment_get_enter_title);
            set => handle.Text(Native.fiscalon_payment_set_enter_title, value);
        }

        /// <summary>Four characters that head each record of the payment, taken as they are.</summary>
        public string SeqNumber
        {
            get => handle.Text(Native.fiscalon_payment_get_seq_number);
            set => handle.Text(Native.fiscalon_payment_set_seq_number, value);
        }

        /// <summary>Name offered on the donation screen.</summary>
        public string BusinessName
        {
            get => handle.Text(Native.fiscalon_payment_get_business_name);
            set => handle.Text(Native.fiscalon_payment_set_business_name, value);
        }

        /// <summary>1: the payment is on hold and has no fixed date. Error 6 for a number that 8 bits do not
        /// hold.</summary>
        public int APHoldFlg
        {
            get => handle.Number(Native.fiscalon_payment_get_ap_hold_flg);
            set => Call.Check(Native.fiscalon_payment_set_ap_hold_flg(handle, value));
        }

        /// <summary>Always false.</summary>
        public bool ShowGST58 => handle.Number(Native.fiscalon_payment_get_show_gst58) != 0;

        /// <summary><see cref="HostBoolean.True"/>, and nothing else: records go to the file; else to a collection.
        /// Error 6 for a number that 16 bits do not hold.</summary>
        public int WriteFile
        {
            get => handle.Number(Native.fiscalon_payment_get_write_file);
            set => Call.Check(Native.fiscalon_payment_set_write_file(handle, value));
        }

        /// <summary>The records of the last screen that ended with OK and without a file: the screen's own collection,
        /// which its next output empties. Null where there is none.</summary>
        public PC4s PC4Records
        {
            get => records = handle.Collection<PC4s, PC4>(
                Native.fiscalon_payment_get_pc4_records, records, found => new PC4s(found));
            set
            {
                if (value == null) Call.Check(Native.fiscalon_payment_set_pc4_records(handle, IntPtr.Zero));
                else Call.Check(Native.fiscalon_payment_set_pc4_records(handle, value.handle));
                records = value;
            }
        }
        /// <summary>Any number but 0 turns the play-by-play log on, for the whole process.</summary>
        public static int PlayByPlayEnabled { set => Call.Check(Native.fiscalon_set_play_by_play_enabled(value)); }

        /// <summary>The folder of both logs, for the whole process.</summary>
        public static string MainPath { set => Call.Check(Native.fiscalon_set_main_path(Utf8.Bytes(value))); }

        /// <summary>The host's session number, whose last three digits stand in lines of the error log. Error 6 beyond
        /// 32 bits.</summary>
        public static double SessionNumber { set => Call.Check(Native.fiscalon_set_session_number(value)); }

        /// <summary>Shows the screen of a two-digit code and waits for the user. True: OK was chosen, and the records
        /// are in the file or in <see cref="PC4Records"/>. False: nothing was written. What a routine of a scripted
        /// user throws comes out of it; errors of the library have the source "Fiscalon.ShowLevyraScreen".</summary>
        public bool ShowLevyraScreen(string screenCode)
        {
            byte[] code = Utf8.Bytes(screenCode);
            int chosen = 0;
            Routines.HandOut(() => Call.Check(Native.fiscalon_payment_show(handle, code, out chosen)));
            return chosen != 0;
        }

        /// <summary>Lets go of it. A payment whose screen is open goes when the show ends.</summary>
        public void Dispose() => handle.Dispose();
    }

    /// <summary>Checks the records of one payment of screen "03" or "20" without a screen.</summary>
    public sealed class clsValidateAddInfo : IDisposable
    {
        private readonly Handle handle;
        private PC4s records;
        private clsPC4GovFormats govFormats;
        private clsPC4FreeFormats freeFormats;

        /// <summary>A check of nothing yet.</summary>
        public clsValidateAddInfo() =>
            handle = new Handle(Handle.Made(Native.fiscalon_check_create), Native.fiscalon_check_destroy);

        /// <summary>"03" or "20": whose rules the records must keep.</summary>
        public string ScreenCode
        {
            get => handle.Text(Native.fiscalon_check_get_screen_code);
            set => handle.Text(Native.fiscalon_check_set_screen_code, value);
        }

        /// <summary>Kept for the host; no rule looks at it.</summary>
        public string NumberOfFields
        {
            get => handle.Text(Native.fiscalon_check_get_number_of_fields);
            set => handle.Text(Native.fiscalon_check_set_number_of_fields, value);
        }

        /// <summary>Screen "20" asks biller "001052" alone for a remittance type.</summary>
        public string BillerCode
        {
            get => handle.Text(Native.fiscalon_check_get_biller_code);
            set => handle.Text(Native.fiscalon_check_set_biller_code, value);
        }

        /// <summary>Kept for the host; no rule looks at it.</summary>
        public string BillerName
        {
            get => handle.Text(Native.fiscalon_check_get_biller_name);
            set => handle.Text(Native.fiscalon_check_set_biller_name, value);
        }

        /// <summary>Kept for the host; no rule looks at it.</summary>
        public string PaymentDate
        {
            get => handle.Text(Native.fiscalon_check_get_payment_date);
            set => handle.Text(Native.fiscalon_check_set_payment_date, value);
        }

        /// <summary>The amount to be paid. Written in cents, read back in dollars. Error 6 for a number beyond all
        /// floats.</summary>
        public string PaymentAmount
        {
            get => handle.Text(Native.fiscalon_check_get_payment_amount);
            set => handle.Text(Native.fiscalon_check_set_payment_amount, value);
        }

        /// <summary>All that the last check found, ", " between; empty where it found nothing.</summary>
        public string InvalidReason
        {
            get => handle.Text(Native.fiscalon_check_get_invalid_reason);
            set => handle.Text(Native.fiscalon_check_set_invalid_reason, value);
        }

        /// <summary>The records to check; null for none, which a check tells as error 91.</summary>
        public PC4s PC4Records
        {
            get => records = handle.Collection<PC4s, PC4>(
                Native.fiscalon_check_get_pc4_records, records, found => new PC4s(found));
            set
            {
                if (value == null) Call.Check(Native.fiscalon_check_set_pc4_records(handle, IntPtr.Zero));
                else Call.Check(Native.fiscalon_check_set_pc4_records(handle, value.handle));
                records = value;
            }
        }

        /// <summary>T records as a check cuts them: null after one, unless an error ended it.</summary>
        public clsPC4GovFormats PC4GovFormatRecords
        {
            get => govFormats = handle.Collection<clsPC4GovFormats, clsPC4GovFormat>(
                Native.fiscalon_check_get_pc4_gov_format_records, govFormats, found => new clsPC4GovFormats(found));
            set
            {
                if (value == null) Call.Check(Native.fiscalon_check_set_pc4_gov_format_records(handle, IntPtr.Zero));
                else Call.Check(Native.fiscalon_check_set_pc4_gov_format_records(handle, value.handle));
                govFormats = value;
            }
        }

        /// <summary>F records as a check cuts them: null after one, unless an error ended it.</summary>
        public clsPC4FreeFormats PC4FreeFormatRecords
        {
            get => freeFormats = handle.Collection<clsPC4FreeFormats, clsPC4FreeFormat>(
                Native.fiscalon_check_get_pc4_free_format_records, freeFormats, found => new clsPC4FreeFormats(found));
            set
            {
                if (value == null) Call.Check(Native.fiscalon_check_set_pc4_free_format_records(handle, IntPtr.Zero));
                else Call.Check(Native.fiscalon_check_set_pc4_free_format_records(handle, value.handle));
                freeFormats = value;
            }
        }
        /// <summary>Any number but 0 turns the play-by-play log on, for the whole process.</summary>
        public static int PlayByPlayEnabled { set => Levyra.PlayByPlayEnabled = value; }

        /// <summary>Whether the records keep all rules; <see cref="InvalidReason"/> tells the rest. A failure in a rule
        /// is a reason, and a line of the error log; one in writing that log is an exception.</summary>
        public bool IsInfoValid() => handle.Number(Native.fiscalon_check_is_info_valid) != 0;

        /// <summary>Lets go of it.</summary>
        public void Dispose() => handle.Dispose();
    }

    /// <summary>What is set once for the process.</summary>
    public static class FiscalonModule
    {
        /// <summary>The library's version, such as "1.0.0".</summary>
        public static string Version => Utf8.Text(Native.fiscalon_version());

        /// <summary>The C interface that the library has.</summary>
        public static int Interface => Native.fiscalon_c_interface();

        /// <summary>Installs what shows forms: "qt", "win32", "terminal" or "scripted"; null takes it away. Error 1008
        /// says what is missing and which package brings it.</summary>
        public static void UseFrontEnd(string name) =>
            Call.Check(Native.fiscalon_use_front_end(Utf8.BytesOrNull(name)));

        /// <summary>Why a front end can't be installed here and now, in one line; empty where it can.</summary>
        public static string FrontEndHindrance(string name)
        {
            lock (Native.Shared)
            {
                Call.Check(Native.fiscalon_front_end_hindrance(Utf8.Bytes(name), out IntPtr reason));
                return Utf8.Text(reason);
            }
        }

        /// <summary>The folder of front ends that are loaded on demand; null for the usual one.</summary>
        public static void UseFrontEndFolder(string path) =>
            Call.Check(Native.fiscalon_use_front_end_folder(Utf8.BytesOrNull(path)));

        /// <summary>Installs the front end that needs no display, with routines that play the user.</summary>
        public static void UseScriptedUser(ScriptedUser user) => Call.Of(user, nameof(user)).Install();

        /// <summary>Has it be that moment until <see cref="ResetModule"/>: for tests. Error 5 before the year
        /// 100.</summary>
        public static void UseFixedClock(DateTime now) => Call.Check(
            Native.fiscalon_use_fixed_clock(now.Year, now.Month, now.Day, now.Hour, now.Minute, now.Second));

        /// <summary>Has the user be one of "en-CA", "en-US" or "fr-CA" until <see cref="ResetModule"/>; "system" goes
        /// by the system again. Error 5 for another name.</summary>
        public static void UseLocale(string name) => Call.Check(Native.fiscalon_use_locale(Utf8.Bytes(name)));

        /// <summary>Has forms and boxes be shown in "en" or "fr" until <see cref="ResetModule"/>; a form that is up
        /// keeps its own. Error 5 for another name. Only what the user reads changes.</summary>
        public static void UseLanguage(string name) => Call.Check(Native.fiscalon_use_language(Utf8.Bytes(name)));

        /// <summary>Puts the library back to how it is when it has just been loaded. Objects of the host stay, and keep
        /// their properties.</summary>
        public static void ResetModule() => Call.Check(Native.fiscalon_reset());

        /// <summary>The text of bytes in Windows-1252, in which record files and logs are.</summary>
        public static string TextOf(byte[] bytes)
        {
            var given = Call.Of(bytes, nameof(bytes));
            var size = new UIntPtr((uint)given.Length);
            Call.Check(Native.fiscalon_to_utf8(given, size, null, UIntPtr.Zero, out UIntPtr needed));
            var utf8 = new byte[(int)needed + 1];
            Call.Check(Native.fiscalon_to_utf8(given, size, utf8, new UIntPtr((uint)utf8.Length), out needed));
            return Encoding.UTF8.GetString(utf8, 0, (int)needed);
        }

        /// <summary>The bytes of a text in Windows-1252. Error 1003 for a character that has no place there.</summary>
        public static byte[] BytesOf(string text)
        {
            byte[] given = Utf8.Strict(Call.Of(text, nameof(text)));
            var size = new UIntPtr((uint)given.Length);
            Call.Check(Native.fiscalon_from_utf8(given, size, null, UIntPtr.Zero, out UIntPtr needed));
            var bytes = new byte[(int)needed + 1];
            Call.Check(Native.fiscalon_from_utf8(given, size, bytes, new UIntPtr((uint)bytes.Length), out needed));
            Array.Resize(ref bytes, (int)needed);
            return bytes;
        }
    }

    /// <summary>One reason against a payment, and where it lies.</summary>
    public sealed class Fault
    {
        internal Fault(FaultStruct told)
        {
            Line = (long)told.line;
            Field = told.field.Text();
            Name = told.name.Text();
            Value = told.value.Text();
            Code = told.code.Text();
            Message = told.message.Text();
        }

        /// <summary>Of the record file, from 1.</summary>
        public long Line { get; }

        /// <summary>The field's number; empty where no numbered field is meant.</summary>
        public string Field { get; }

        /// <summary>The field's name; empty where it has none.</summary>
        public string Name { get; }

        /// <summary>What was found there, without the blanks behind it.</summary>
        public string Value { get; }

        /// <summary>Which test it failed: a word that stays the same, such as "blank".</summary>
        public string Code { get; }

        /// <summary>Its part of the reason.</summary>
        public string Message { get; }
    }

    /// <summary>The verdict on one payment.</summary>
    public sealed class Verdict
    {
        internal Verdict(VerdictStruct told)
        {
            Row = (long)told.row;
            Line = (long)told.line;
            Valid = told.valid != 0;
            Seq = told.seq.Text();
            Screen = told.screen.Text();
            Reason = told.reason.Text();
            Lines = told.lines.Text();
            var faults = new Fault[(int)told.faultCount];
            IntPtr place = told.faults;
            for (int i = 0; i < faults.Length; ++i)
            {
                var fault = Marshal.PtrToStructure<FaultStruct>(place);
                faults[i] = new Fault(fault);
                place = new IntPtr(place.ToInt64() + (long)fault.size);
            }
            Faults = faults;
        }

        /// <summary>Its line in the payments list, from 1.</summary>
        public long Row { get; }

        /// <summary>Its first line in the record file, from 1; 0 where faults are not wanted.</summary>
        public long Line { get; }

        /// <summary>Whether the payment is good.</summary>
        public bool Valid { get; }

        /// <summary>The payment's sequence number.</summary>
        public string Seq { get; }

        /// <summary>The code of its screen.</summary>
        public string Screen { get; }

        /// <summary>All that was found, ", " between; empty where the payment is good.</summary>
        public string Reason { get; }

        /// <summary>The payment's lines of the record file, where they are wanted.</summary>
        public string Lines { get; }

        /// <summary>The parts of the reason, where they are wanted.</summary>
        public IReadOnlyList<Fault> Faults { get; }
    }

    /// <summary>What a batch came to, or has come to by now.</summary>
    public sealed class BatchCounts
    {
        internal BatchCounts(CountsStruct told)
        {
            Payments = (long)told.payments;
            Invalid = (long)told.invalid;
            Bytes = (long)told.bytes;
            TotalBytes = (long)told.totalBytes;
        }

        /// <summary>How many payments were judged.</summary>
        public long Payments { get; }

        /// <summary>How many of them are not good.</summary>
        public long Invalid { get; }

        /// <summary>How many bytes of records were judged.</summary>
        public long Bytes { get; }

        /// <summary>Of how many; 0 where that is not known.</summary>
        public long TotalBytes { get; }
    }

    /// <summary>A batch: a payments list and a file with the records of its payments, in the same order.</summary>
    public sealed class Batch
    {
        private readonly string payments;
        private readonly string records;
        private readonly byte[] paymentsBytes;
        private readonly byte[] recordsBytes;

        /// <summary>Two files by their paths.</summary>
        public Batch(string paymentsPath, string recordsPath)
        {
            payments = Call.Of(paymentsPath, nameof(paymentsPath));
            records = Call.Of(recordsPath, nameof(recordsPath));
        }

        /// <summary>What stands in two files.</summary>
        public Batch(byte[] payments, byte[] records) : this("payments", "records")
        {
            paymentsBytes = Call.Of(payments, nameof(payments));
            recordsBytes = Call.Of(records, nameof(records));
        }

        /// <summary>Which part is judged, from 1; 0 of 0 is the whole.</summary>
        public long Part { get; set; }

        /// <summary>Of how many parts. The verdicts of all parts in their order are those of the whole.</summary>
        public long Parts { get; set; }

        /// <summary>Threads that judge; 0 for as many as there are processors.</summary>
        public int Jobs { get; set; }

        /// <summary>Whether verdicts on good payments are wanted too, as they are at first.</summary>
        public bool WantsValid { get; set; } = true;

        /// <summary>Whether it is told where the faults of bad payments lie.</summary>
        public bool WantsFaults { get; set; }

        /// <summary>Whether the lines of payments are told.</summary>
        public bool WantsLines { get; set; }

        /// <summary>Hears of the counts every few thousand payments, from whatever thread is at it.</summary>
        public Action<BatchCounts> OnProgress { get; set; }

        /// <summary>Judges it, and gives each verdict to a routine, one after the other, from whatever thread is at it.
        /// What the routine throws ends the batch and comes out of the call. The counts tell of all payments.</summary>
        public BatchCounts Validate(Action<Verdict> onVerdict = null)
        {
            if (onVerdict == null) return Judge(null);
            return Judge(block =>
            {
                foreach (Verdict verdict in block) onVerdict(verdict);
            });
        }

        /// <summary>Judges it on a thread of its own, and gives the verdicts in their order while they are made.
        /// Whoever stops early disposes of the enumerator, as <c>foreach</c> does, and the batch ends. An error comes
        /// out behind the last verdict that was given; no verdict counts then.</summary>
        public IEnumerable<Verdict> Verdicts()
        {
            var blocks = new BlockingCollection<Verdict[]>(4);
            var stop = new CancellationTokenSource();
            Exception failure = null;
            var judge = new Thread(() =>
            {
                try
                {
                    Judge(block => blocks.Add(block, stop.Token), stop.Token);
                }
                catch (Exception error)
                {
                    failure = error;
                }
                finally
                {
                    blocks.CompleteAdding();
                }
            }) { IsBackground = true };
            judge.Start();
            try
            {
                foreach (Verdict[] block in blocks.GetConsumingEnumerable())
                    foreach (Verdict verdict in block) yield return verdict;
                judge.Join();
                if (failure != null) ExceptionDispatchInfo.Capture(failure).Throw();
            }
            finally
            {
                stop.Cancel();
                judge.Join();
            }
        }

        private BatchCounts Judge(Action<Verdict[]> onVerdicts, CancellationToken stop = default(CancellationToken))
        {
            if (Part < 0 || Parts < 0 || Jobs < 0)
                throw new FiscalonException(ErrorNumber.InvalidProcedureCall, "A part, parts or jobs below 0.", "Fiscalon");
            var problems = new List<BatchProblem>();
            ExceptionDispatchInfo raised = null;
            // No exception goes on through the library: it is kept, and the batch ends.
            Func<Action, int> guarded = routine =>
            {
                try
                {
                    routine();
                    return 0;
                }
                catch (Exception error)
                {
                    raised = raised ?? ExceptionDispatchInfo.Capture(error);
                    return 1;
                }
            };
            OnVerdicts verdictsCome = (context, first, count) => guarded(() => onVerdicts(BlockOf(first, (int)count)));
            OnProgress progressIsMade = (IntPtr context, ref CountsStruct soFar) =>
            {
                var told = new BatchCounts(soFar);
                return guarded(() =>
                {
                    // Bad payments may be far between.
                    stop.ThrowIfCancellationRequested();
                    OnProgress?.Invoke(told);
                });
            };
            OnProblem problemIsMet = (context, file, line, reason) =>
                guarded(() => problems.Add(new BatchProblem(Utf8.Text(file), (long)line, Utf8.Text(reason))));

            using (var paymentsName = new Pinned(Utf8.Bytes(payments)))
            using (var recordsName = new Pinned(Utf8.Bytes(records)))
            using (var paymentsText = new Pinned(paymentsBytes))
            using (var recordsText = new Pinned(recordsBytes))
            {
                var batch = new BatchStruct
                {
                    size = Native.SizeOf<BatchStruct>(),
                    paymentsPath = paymentsName.Place,
                    recordsPath = recordsName.Place,
                    paymentsBytes = paymentsText.Place,
                    paymentsSize = paymentsText.Size,
                    recordsBytes = recordsText.Place,
                    recordsSize = recordsText.Size,
                    part = (ulong)Part,
                    parts = (ulong)Parts,
                    jobs = (uint)Jobs,
                    wantsValid = WantsValid ? 1 : 0,
                    wantsFaults = WantsFaults ? 1 : 0,
                    wantsLines = WantsLines ? 1 : 0,
                    onVerdicts = onVerdicts == null ? null : verdictsCome,
                    onProgress = progressIsMade,
                    onProblem = problemIsMet
                };
                var counts = new CountsStruct { size = Native.SizeOf<CountsStruct>() };
                int answer = Native.fiscalon_validate_batch(ref batch, ref counts);
                GC.KeepAlive(batch);
                raised?.Throw();
                if (answer == 0) return new BatchCounts(counts);
                FiscalonException error = Call.LastError();
                throw error.Number == ErrorNumber.Batch ? new BatchException(error, problems) : error;
            }
        }

        private static Verdict[] BlockOf(IntPtr place, int count)
        {
            var block = new Verdict[count];
            for (int i = 0; i < count; ++i)
            {
                var told = Marshal.PtrToStructure<VerdictStruct>(place);
                block[i] = new Verdict(told);
                place = new IntPtr(place.ToInt64() + (long)told.size);
            }
            return block;
        }
    }

    /// <summary>Judges payments one by one from the host's own memory, as of the day on which it was made.</summary>
    public sealed class Judge : IDisposable
    {
        private readonly Handle handle;

        /// <summary>A judge of today.</summary>
        public Judge() =>
            handle = new Handle(Handle.Made(Native.fiscalon_judge_create), Native.fiscalon_judge_destroy);

        /// <summary>Whether a payment's records, without quotes, meet the rules of its screen, and why not; where its
        /// faults lie too, if that is wanted, their lines being which record it is, from 1.</summary>
        public Verdict Payment(string screenCode, string billerCode, long cents, IEnumerable<string> records,
            bool wantsFaults = false)
        {
            var texts = new List<Pinned>();
            try
            {
                foreach (string record in Call.Of(records, nameof(records))) texts.Add(new Pinned(Utf8.Bytes(record)));
                var places = new IntPtr[texts.Count];
                for (int i = 0; i < places.Length; ++i) places[i] = texts[i].Place;
                var verdict = new VerdictStruct { size = Native.SizeOf<VerdictStruct>() };
                lock (handle)
                {
                    Call.Check(Native.fiscalon_judge_payment(handle, Utf8.Bytes(screenCode), Utf8.Bytes(billerCode),
                        cents, places, new UIntPtr((uint)places.Length), wantsFaults ? 1 : 0, ref verdict));
                    return new Verdict(verdict);
                }
            }
            finally
            {
                foreach (Pinned text in texts) text.Dispose();
            }
        }

        /// <summary>Lets go of it.</summary>
        public void Dispose() => handle.Dispose();
    }

    /// <summary>What kind of a message a box brings.</summary>
    public enum BoxStyle
    {
        /// <summary>No mark.</summary>
        Plain,
        /// <summary>An error.</summary>
        Critical,
        /// <summary>A question.</summary>
        Question,
        /// <summary>A warning.</summary>
        Exclamation,
        /// <summary>News.</summary>
        Information
    }

    /// <summary>Which buttons a box has.</summary>
    public enum Buttons
    {
        /// <summary>OK.</summary>
        Ok,
        /// <summary>OK and Cancel.</summary>
        OkCancel,
        /// <summary>Yes and No.</summary>
        YesNo
    }

    /// <summary>Which button of a box was pressed.</summary>
    public enum Answer
    {
        /// <summary>OK.</summary>
        Ok,
        /// <summary>Cancel.</summary>
        Cancel,
        /// <summary>Yes.</summary>
        Yes,
        /// <summary>No.</summary>
        No
    }

    /// <summary>What a control is.</summary>
    public enum ControlKind
    {
        /// <summary>A label.</summary>
        Label,
        /// <summary>A text field.</summary>
        TextField,
        /// <summary>A push button.</summary>
        Button,
        /// <summary>A check box.</summary>
        CheckBox,
        /// <summary>An option button.</summary>
        OptionButton,
        /// <summary>A list that drops down.</summary>
        DropDownList,
        /// <summary>A list.</summary>
        ListBox,
        /// <summary>A frame around others.</summary>
        Frame
    }

    /// <summary>Why a window closes.</summary>
    public enum CloseReason
    {
        /// <summary>By its close box.</summary>
        CloseBox,
        /// <summary>By code.</summary>
        Code,
        /// <summary>The system ends.</summary>
        SystemEnds,
        /// <summary>The task manager ends the program.</summary>
        TaskManager,
        /// <summary>The window that holds it closes.</summary>
        ParentCloses,
        /// <summary>The window that owns it closes.</summary>
        OwnerCloses
    }

    /// <summary>A message box that is up.</summary>
    public sealed class Box
    {
        internal Box(BoxStruct told)
        {
            Text = Utf8.Text(told.text);
            Title = Utf8.Text(told.title);
            Style = (BoxStyle)told.style;
            Buttons = (Buttons)told.buttons;
            DefaultAnswer = (Answer)told.defaultAnswer;
            ClosedAnswer = (Answer)told.closedAnswer;
        }

        /// <summary>What it says.</summary>
        public string Text { get; }

        /// <summary>Its title; empty: the host application's own name is shown.</summary>
        public string Title { get; }

        /// <summary>What kind of a message it brings.</summary>
        public BoxStyle Style { get; }

        /// <summary>Which buttons it has.</summary>
        public Buttons Buttons { get; }

        /// <summary>What Enter answers.</summary>
        public Answer DefaultAnswer { get; }

        /// <summary>What a box answers that is closed without a button: the most careful of its answers.</summary>
        public Answer ClosedAnswer { get; }

        internal Answer Offered(Answer answer)
        {
            bool isOffered = Buttons == Buttons.YesNo ? answer == Answer.Yes || answer == Answer.No
                : answer == Answer.Ok || answer == Answer.Cancel && Buttons == Buttons.OkCancel;
            return isOffered ? answer
                : throw new FiscalonException(ErrorNumber.Callback, "The box has no such button.", "Fiscalon");
        }
    }

    /// <summary>What the user sees of a control.</summary>
    public sealed class Control
    {
        internal Control(ControlStruct told)
        {
            Name = Utf8.Text(told.name);
            Kind = (ControlKind)told.kind;
            Items = told.items;
            Text = Utf8.Text(told.text);
            Selection = Utf8.Text(told.selection);
            Checked = told.isChecked != 0;
            Locked = told.isLocked != 0;
            Enabled = told.isEnabled != 0;
            Visible = told.isVisible != 0;
        }

        /// <summary>As handlers bear it; members of arrays are named "Box(3)".</summary>
        public string Name { get; }

        /// <summary>What it is.</summary>
        public ControlKind Kind { get; }

        /// <summary>The rows of a list.</summary>
        public int Items { get; }

        /// <summary>A field's text, a button's or label's caption as designed, a list's selected row.</summary>
        public string Text { get; }

        /// <summary>The part of a field's text that is selected.</summary>
        public string Selection { get; }

        /// <summary>Whether it is checked, or on.</summary>
        public bool Checked { get; }

        /// <summary>Whether it takes no entry.</summary>
        public bool Locked { get; }

        /// <summary>Whether it takes the focus.</summary>
        public bool Enabled { get; }

        /// <summary>Whether it is seen.</summary>
        public bool Visible { get; }
    }

    /// <summary>A form that is up, and a user at it. It is good for as long as the routine runs that was given it, and
    /// acts for as long as the form is up; else error 1010.</summary>
    public sealed class Form
    {
        private IntPtr pointer;

        internal Form(IntPtr pointer) => this.pointer = pointer;

        internal void Close() => pointer = IntPtr.Zero;

        private IntPtr Open
        {
            get
            {
                if (pointer == IntPtr.Zero)
                    throw new FiscalonException(ErrorNumber.FormClosed, "The form's routine has returned.", "Fiscalon");
                return pointer;
            }
        }

        /// <summary>Such as "frmDueDateAmount".</summary>
        public string Name => Call.Text(Open, Native.fiscalon_form_get_name);

        /// <summary>Whether it is still up.</summary>
        public bool IsUp => pointer != IntPtr.Zero && Call.Number(pointer, Native.fiscalon_form_is_up) != 0;

        /// <summary>Whether it counts as accepted by now, which the show's result will tell.</summary>
        public bool Chosen => Call.Number(Open, Native.fiscalon_form_get_chosen) != 0;

        /// <summary>The title of its window.</summary>
        public string Title => Call.Text(Open, Native.fiscalon_form_get_title);

        /// <summary>The name of the control that has the focus; empty where none has.</summary>
        public string Focus => Call.Text(Open, Native.fiscalon_form_get_focus);

        /// <summary>What it says without a box; empty mostly.</summary>
        public string Status => Call.Text(Open, Native.fiscalon_form_get_status);

        /// <summary>All controls as they are now, in the order of the form.</summary>
        public IReadOnlyList<Control> Controls
        {
            get
            {
                var controls = new Control[Call.Number(Open, Native.fiscalon_form_control_count)];
                for (int i = 0; i < controls.Length; ++i)
                {
                    var told = new ControlStruct { size = Native.SizeOf<ControlStruct>() };
                    Call.Check(Native.fiscalon_form_control_at(Open, i + 1, ref told));
                    controls[i] = new Control(told);
                }
                return controls;
            }
        }

        /// <summary>A control as it is now. Error 5 for a name that none has.</summary>
        public Control ControlNamed(string name)
        {
            var told = new ControlStruct { size = Native.SizeOf<ControlStruct>() };
            Call.Check(Native.fiscalon_form_control_of(Open, Utf8.Bytes(name), ref told));
            return new Control(told);
        }

        /// <summary>A row of a list, from 0. Error 9 for another; 5 for what is no list.</summary>
        public string Row(string control, int row)
        {
            Call.Check(Native.fiscalon_form_get_row(Open, Utf8.Bytes(control), row, out IntPtr text));
            return Utf8.Text(text);
        }

        /// <summary>Types each character into the control that has the focus by then; a tab goes on to the next
        /// control. Error 1010 where the form closes before the last one.</summary>
        public void Type(string text) => Call.Check(Native.fiscalon_form_type(Open, Utf8.Bytes(text)));

        /// <summary>Tab, Shift+Tab, Enter, Shift+Enter, Ctrl+Enter, Escape, Backspace, Delete, Space, Left, Right, Up,
        /// Down, Home, End or Alt+LETTER.</summary>
        public void PressKey(string key) => Call.Check(Native.fiscalon_form_press_key(Open, Utf8.Bytes(key)));

        /// <summary>Presses the mouse on a control without releasing it.</summary>
        public void PressMouse(string control) =>
            Call.Check(Native.fiscalon_form_press_mouse(Open, Utf8.Bytes(control)));

        /// <summary>Presses the mouse on a control and releases it.</summary>
        public void Click(string control) => Call.Check(Native.fiscalon_form_click(Open, Utf8.Bytes(control)));

        /// <summary>Picks a row of a list, from 0.</summary>
        public void Choose(string control, int row) =>
            Call.Check(Native.fiscalon_form_choose(Open, Utf8.Bytes(control), row));

        /// <summary>Pastes over the selection of the control that has the focus.</summary>
        public void Paste(string text) => Call.Check(Native.fiscalon_form_paste(Open, Utf8.Bytes(text)));

        /// <summary>Closes the window.</summary>
        public void Close(CloseReason reason) => Call.Check(Native.fiscalon_form_close(Open, (int)reason));
    }

    /// <summary>Routines that play the user of a form, without a display. Each may be null. What one throws ends the
    /// show and comes out of it.</summary>
    public sealed class ScriptedUser
    {
        /// <summary>A form is up. One that is still up when this returns is closed as hidden.</summary>
        public Action<Form> OnForm { get; set; }

        /// <summary>Answers a box by one of its buttons. Without it a box gets its default answer.</summary>
        public Func<Box, Answer> OnBox { get; set; }

        /// <summary>A beep.</summary>
        public Action OnBeep { get; set; }

        /// <summary>Help is asked for: a file at a context number.</summary>
        public Action<string, int> OnHelp { get; set; }

        /// <summary>A handler is about to run, such as "txtAmountPayable_Change".</summary>
        public Action<string> OnHandler { get; set; }

        // What the library calls must stay as long as it may call it.
        private static UserStruct installed;

        internal void Install()
        {
            // As they are now: they may be set to others while a form is up.
            var (onForm, onBox, onBeep, onHelp, onHandler) = (OnForm, OnBox, OnBeep, OnHelp, OnHandler);
            var user = new UserStruct { size = Native.SizeOf<UserStruct>() };
            if (onForm != null) user.onForm = (context, pointer) => Routines.Guard(() =>
            {
                var form = new Form(pointer);
                try
                {
                    onForm(form);
                }
                finally
                {
                    form.Close();
                }
            });
            if (onBox != null) user.onBox = (IntPtr context, ref BoxStruct told, ref int answer) =>
            {
                var box = new Box(told);
                var given = box.ClosedAnswer;
                int failed = Routines.Guard(() => given = box.Offered(onBox(box)));
                answer = (int)given;
                return failed;
            };
            if (onBeep != null) user.onBeep = context => Routines.Guard(onBeep);
            if (onHelp != null) user.onHelp =
                (context, file, helpContext) => Routines.Guard(() => onHelp(Utf8.Text(file), helpContext));
            if (onHandler != null) user.onHandler = (context, name) => Routines.Guard(() => onHandler(Utf8.Text(name)));
            Call.Check(Native.fiscalon_use_scripted_user(ref user));
            installed = user;
            GC.KeepAlive(installed);
        }
    }

    /// <summary>What the routines of the host's throw while a screen is shown.</summary>
    internal static class Routines
    {
        [ThreadStatic] private static ExceptionDispatchInfo raised;

        /// <summary>No exception goes on through the library: the first one is kept, and the show ends.</summary>
        internal static int Guard(Action routine)
        {
            try
            {
                routine();
                return 0;
            }
            catch (Exception error)
            {
                raised = raised ?? ExceptionDispatchInfo.Capture(error);
                return 1;
            }
        }

        /// <summary>Throws after a show what was thrown in it, whatever the library answers. A routine may show another
        /// screen, whose exceptions are its own.</summary>
        internal static void HandOut(Action show)
        {
            ExceptionDispatchInfo outer = raised;
            raised = null;
            try
            {
                show();
                raised?.Throw();
            }
            catch (FiscalonException) when (raised != null)
            {
                raised.Throw();
            }
            finally
            {
                raised = outer;
            }
        }
    }

    /// <summary>Texts as the library takes and gives them: UTF-8 that ends with a zero.</summary>
    internal static class Utf8
    {
        private static readonly UTF8Encoding strict = new UTF8Encoding(false, true);

        internal static byte[] Strict(string text)
        {
            try
            {
                return strict.GetBytes(text);
            }
            catch (EncoderFallbackException)
            {
                throw new FiscalonException(ErrorNumber.Text, "The text is no Unicode: it has half a surrogate pair.",
                    "Fiscalon");
            }
        }

        /// <summary>Null stays null, which the library knows what to do with.</summary>
        internal static byte[] BytesOrNull(string text)
        {
            if (text == null) return null;
            if (text.IndexOf('\0') >= 0)
                throw new FiscalonException(ErrorNumber.Text, "The text holds a zero, where it would end.", "Fiscalon");
            byte[] bytes = Strict(text);
            Array.Resize(ref bytes, bytes.Length + 1);
            return bytes;
        }

        internal static byte[] Bytes(string text) => BytesOrNull(text) ??
            throw new FiscalonException(ErrorNumber.NullPointer, "The text is null.", "Fiscalon");

        internal static string Text(IntPtr place)
        {
            if (place == IntPtr.Zero) return "";
            int size = 0;
            while (Marshal.ReadByte(place, size) != 0) ++size;
            return Text(place, size);
        }

        internal static string Text(IntPtr place, int size)
        {
            if (size == 0) return "";
            var bytes = new byte[size];
            Marshal.Copy(place, bytes, 0, size);
            return Encoding.UTF8.GetString(bytes);
        }
    }

    /// <summary>Calls of the library, and what becomes of their answers.</summary>
    internal static class Call
    {
        internal static void Check(int answer)
        {
            if (answer != 0) throw LastError();
        }

        internal static FiscalonException LastError()
        {
            var error = new ErrorStruct { size = Native.SizeOf<ErrorStruct>() };
            Native.fiscalon_last_error(ref error);
            return new FiscalonException(error.number, Utf8.Text(error.description), Utf8.Text(error.source));
        }

        internal static T Of<T>(T given, string name) where T : class => given ?? throw new ArgumentNullException(name);

        internal static int Number(IntPtr form, NumberOf<IntPtr> get)
        {
            Check(get(form, out int number));
            return number;
        }

        internal static string Text(IntPtr form, TextOf<IntPtr> get)
        {
            Check(get(form, out IntPtr text));
            return Utf8.Text(text);
        }
    }

    internal delegate int Maker(out IntPtr handle);
    internal delegate int Destroyer(ref IntPtr handle);
    internal delegate int NumberOf<TObject>(TObject of, out int number);
    internal delegate int TextOf<TObject>(TObject of, out IntPtr text);
    internal delegate int TextSetter(Handle of, byte[] text);
    internal delegate int PointerOf(Handle of, out IntPtr pointer);

    /// <summary>What a collection of one kind is called by.</summary>
    internal sealed class CollectionCalls
    {
        internal delegate int At(Handle of, long position);
        internal delegate int Of(Handle of, byte[] key);
        internal delegate int ItemAtPosition(Handle of, long position, out IntPtr item);
        internal delegate int ItemOfKey(Handle of, byte[] key, out IntPtr item);
        internal delegate int All(Handle of);
        internal delegate int Comparer(Handle one, Handle other, out int same);

        internal NumberOf<Handle> Count;
        internal ItemAtPosition ItemAt;
        internal ItemOfKey ItemOf;
        internal At RemoveAt;
        internal Of RemoveOf;
        internal All Clear;
        internal Comparer IsSame;
        internal Destroyer Destroy;
    }

    /// <summary>Bytes that stay where they are for a call.</summary>
    internal sealed class Pinned : IDisposable
    {
        private GCHandle held;
        private readonly int size;

        internal Pinned(byte[] bytes)
        {
            if (bytes == null) return;
            size = bytes.Length;
            // Where there are none, the place must be one all the same.
            held = GCHandle.Alloc(size == 0 ? new byte[1] : bytes, GCHandleType.Pinned);
        }

        internal IntPtr Place => held.IsAllocated ? held.AddrOfPinnedObject() : IntPtr.Zero;
        internal UIntPtr Size => new UIntPtr((uint)size);

        public void Dispose()
        {
            if (held.IsAllocated) held.Free();
        }
    }

    /// <summary>What stands for an object of the library, and lets go of it on whatever thread.</summary>
    internal sealed class Handle : SafeHandle
    {
        private readonly Destroyer destroy;

        internal Handle(IntPtr pointer, Destroyer destroy) : base(IntPtr.Zero, true)
        {
            this.destroy = destroy;
            SetHandle(pointer);
        }

        internal static IntPtr Made(Maker make)
        {
            Call.Check(make(out IntPtr pointer));
            return pointer;
        }

        public override bool IsInvalid => handle == IntPtr.Zero;

        protected override bool ReleaseHandle()
        {
            IntPtr pointer = handle;
            return destroy(ref pointer) == 0;
        }

        internal int Number(NumberOf<Handle> get)
        {
            Call.Check(get(this, out int number));
            return number;
        }

        /// <summary>A text lives until the next call with its handle: nobody else makes one meanwhile.</summary>
        internal string Text(TextOf<Handle> get)
        {
            lock (this)
            {
                Call.Check(get(this, out IntPtr text));
                return Utf8.Text(text);
            }
        }

        internal void Text(TextSetter set, string text)
        {
            byte[] bytes = Utf8.Bytes(text);
            lock (this) Call.Check(set(this, bytes));
        }

        /// <summary>The same object as before where it stands for the same collection.</summary>
        internal TCollection Collection<TCollection, TMember>(PointerOf get, TCollection before,
            Func<IntPtr, TCollection> wrap)
            where TCollection : Collection<TMember> where TMember : class
        {
            Call.Check(get(this, out IntPtr pointer));
            if (pointer == IntPtr.Zero) return null;
            TCollection found = wrap(pointer);
            if (before == null || before.handle.IsClosed || !before.IsSame(found)) return found;
            found.Dispose();
            return before;
        }
    }

    [StructLayout(LayoutKind.Sequential)]
    internal struct ErrorStruct
    {
        internal UIntPtr size;
        internal int number;
        internal IntPtr source, description;
    }

    [StructLayout(LayoutKind.Sequential)]
    internal struct TextStruct
    {
        internal IntPtr data;
        internal UIntPtr size;

        internal string Text() => Utf8.Text(data, (int)size);
    }

    [StructLayout(LayoutKind.Sequential)]
    internal struct FaultStruct
    {
        internal UIntPtr size;
        internal ulong line;
        internal TextStruct field, name, value, code, message;
    }

    [StructLayout(LayoutKind.Sequential)]
    internal struct VerdictStruct
    {
        internal UIntPtr size;
        internal ulong row, line;
        internal int valid, unused;
        internal TextStruct seq, screen, reason, lines;
        internal IntPtr faults;
        internal UIntPtr faultCount;
    }

    [StructLayout(LayoutKind.Sequential)]
    internal struct CountsStruct
    {
        internal UIntPtr size;
        internal ulong payments, invalid, bytes, totalBytes;
    }

    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    internal delegate int OnVerdicts(IntPtr context, IntPtr verdicts, UIntPtr count);
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    internal delegate int OnProgress(IntPtr context, ref CountsStruct soFar);
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    internal delegate int OnProblem(IntPtr context, IntPtr file, ulong line, IntPtr reason);

    [StructLayout(LayoutKind.Sequential)]
    internal struct BatchStruct
    {
        internal UIntPtr size;
        internal IntPtr paymentsPath, recordsPath, paymentsBytes;
        internal UIntPtr paymentsSize;
        internal IntPtr recordsBytes;
        internal UIntPtr recordsSize;
        internal ulong part, parts;
        internal uint jobs;
        internal int wantsValid, wantsFaults, wantsLines;
        internal IntPtr context;
        internal OnVerdicts onVerdicts;
        internal OnProgress onProgress;
        internal OnProblem onProblem;
    }

    [StructLayout(LayoutKind.Sequential)]
    internal struct BoxStruct
    {
        internal UIntPtr size;
        internal IntPtr text, title;
        internal int style, buttons, defaultAnswer, closedAnswer;
    }

    [StructLayout(LayoutKind.Sequential)]
    internal struct ControlStruct
    {
        internal UIntPtr size;
        internal IntPtr name;
        internal int kind, items;
        internal IntPtr text, selection;
        internal int isChecked, isLocked, isEnabled, isVisible;
    }

    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    internal delegate int OnForm(IntPtr context, IntPtr form);
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    internal delegate int OnBox(IntPtr context, ref BoxStruct box, ref int answer);
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    internal delegate int OnBeep(IntPtr context);
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    internal delegate int OnHelp(IntPtr context, IntPtr file, int helpContext);
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    internal delegate int OnHandler(IntPtr context, IntPtr handler);

    [StructLayout(LayoutKind.Sequential)]
    internal struct UserStruct
    {
        internal UIntPtr size;
        internal IntPtr context;
        internal OnForm onForm;
        internal OnBox onBox;
        internal OnBeep onBeep;
        internal OnHelp onHelp;
        internal OnHandler onHandler;
    }

    /// <summary>The functions of the C interface.</summary>
    internal static class Native
    {
#if WINDOWS
        private const string Library = "fiscalon-c.dll";
#else
        private const string Library = "libfiscalon-c.so.1";
#endif

        /// <summary>Held while a text is read that no handle of the host's keeps.</summary>
        internal static readonly object Shared = new object();

        internal static UIntPtr SizeOf<T>() => new UIntPtr((uint)Marshal.SizeOf<T>());

        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_record_destroy(ref IntPtr handle);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_record_get_the_date(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_record_set_the_date(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_record_get_amount(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_record_set_amount(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_record_get_description(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_record_set_description(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_records_destroy(ref IntPtr handle);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_records_create(out IntPtr handle);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_records_add(Handle handle, byte[] theDate, byte[] amount,
            byte[] description, byte[] key, out IntPtr added);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_records_count(Handle handle, out int count);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_records_item_at(Handle handle, long position, out IntPtr item);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_records_item_of(Handle handle, byte[] key, out IntPtr item);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_records_remove_at(Handle handle, long position);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_records_remove_of(Handle handle, byte[] key);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_records_clear(Handle handle);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_records_is_same(Handle handle, Handle other, out int same);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_format_destroy(ref IntPtr handle);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_format_create(out IntPtr handle);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_format_get_period_start_date(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_format_set_period_start_date(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_format_get_period_end_date(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_format_set_period_end_date(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_format_get_period_due_date(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_format_set_period_due_date(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_format_get_filler1(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_format_set_filler1(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_format_get_contact_name(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_format_set_contact_name(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_format_get_contact_title(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_format_set_contact_title(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_format_get_filler2(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_format_set_filler2(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_formats_destroy(ref IntPtr handle);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_formats_create(out IntPtr handle);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_formats_add(Handle handle, byte[] periodStartDate,
            byte[] periodEndDate, byte[] periodDueDate, byte[] filler1, byte[] contactName, byte[] contactTitle,
            byte[] filler2, byte[] key, out IntPtr added);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_formats_count(Handle handle, out int count);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_formats_item_at(Handle handle, long position, out IntPtr item);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_formats_item_of(Handle handle, byte[] key, out IntPtr item);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_formats_remove_at(Handle handle, long position);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_formats_remove_of(Handle handle, byte[] key);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_formats_clear(Handle handle);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_gov_formats_is_same(Handle handle, Handle other, out int same);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_free_format_destroy(ref IntPtr handle);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_free_format_create(out IntPtr handle);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_free_format_get_field_num(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_free_format_set_field_num(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_free_format_get_field_value(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_free_format_set_field_value(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_free_formats_destroy(ref IntPtr handle);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_free_formats_create(out IntPtr handle);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_free_formats_add(Handle handle, byte[] fieldNum, byte[] fieldValue,
            byte[] key, out IntPtr added);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_free_formats_count(Handle handle, out int count);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_free_formats_item_at(Handle handle, long position, out IntPtr item);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_free_formats_item_of(Handle handle, byte[] key, out IntPtr item);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_free_formats_remove_at(Handle handle, long position);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_free_formats_remove_of(Handle handle, byte[] key);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_free_formats_clear(Handle handle);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_free_formats_is_same(Handle handle, Handle other, out int same);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_get_zelmor_number(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_set_zelmor_number(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_get_comp_code(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_set_comp_code(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_get_comp_name(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_set_comp_name(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_get_account_number(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_set_account_number(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_get_paid_amount(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_set_paid_amount(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_get_paid_date(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_set_paid_date(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_get_number_of_info_collect(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_set_number_of_info_collect(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_get_gov_filename(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_set_gov_filename(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_get_enter_name(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_set_enter_name(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_get_enter_title(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_set_enter_title(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_get_seq_number(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_set_seq_number(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_get_business_name(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_set_business_name(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_get_pc4_records(Handle handle, out IntPtr value);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_set_pc4_records(Handle handle, Handle value);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_set_pc4_records(Handle handle, IntPtr none);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_get_screen_code(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_set_screen_code(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_get_number_of_fields(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_set_number_of_fields(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_get_biller_code(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_set_biller_code(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_get_biller_name(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_set_biller_name(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_get_payment_date(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_set_payment_date(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_get_payment_amount(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_set_payment_amount(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_get_invalid_reason(Handle handle, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_set_invalid_reason(Handle handle, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_get_pc4_records(Handle handle, out IntPtr value);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_set_pc4_records(Handle handle, Handle value);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_set_pc4_records(Handle handle, IntPtr none);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_get_pc4_gov_format_records(Handle handle, out IntPtr value);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_set_pc4_gov_format_records(Handle handle, Handle value);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_set_pc4_gov_format_records(Handle handle, IntPtr none);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_get_pc4_free_format_records(Handle handle, out IntPtr value);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_set_pc4_free_format_records(Handle handle, Handle value);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_set_pc4_free_format_records(Handle handle, IntPtr none);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_create(out IntPtr handle);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_destroy(ref IntPtr handle);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_get_ap_hold_flg(Handle handle, out int flag);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_set_ap_hold_flg(Handle handle, int flag);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_get_show_gst58(Handle handle, out int shown);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_get_write_file(Handle handle, out int flag);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_set_write_file(Handle handle, int flag);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_set_play_by_play_enabled(int flag);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_set_main_path(byte[] path);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_set_session_number(double number);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_payment_show(Handle handle, byte[] screenCode, out int chosen);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_create(out IntPtr handle);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_destroy(ref IntPtr handle);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_check_is_info_valid(Handle handle, out int valid);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern IntPtr fiscalon_version();
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_c_interface();
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_use_front_end(byte[] name);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_front_end_hindrance(byte[] name, out IntPtr reason);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_use_front_end_folder(byte[] path);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_use_fixed_clock(int year, int month, int day, int hour, int minute,
            int second);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_use_locale(byte[] name);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_use_language(byte[] name);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_reset();
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_to_utf8(byte[] bytes, UIntPtr size, byte[] utf8, UIntPtr capacity,
            out UIntPtr needed);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_from_utf8(byte[] utf8, UIntPtr size, byte[] bytes, UIntPtr capacity,
            out UIntPtr needed);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_validate_batch(ref BatchStruct batch, ref CountsStruct counts);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_judge_create(out IntPtr handle);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_judge_destroy(ref IntPtr handle);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_judge_payment(Handle handle, byte[] screenCode, byte[] billerCode,
            long cents, IntPtr[] records, UIntPtr count, int wantsFaults, ref VerdictStruct verdict);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_form_get_name(IntPtr form, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_form_is_up(IntPtr form, out int up);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_form_get_chosen(IntPtr form, out int chosen);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_form_get_title(IntPtr form, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_form_get_focus(IntPtr form, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_form_get_status(IntPtr form, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_form_control_count(IntPtr form, out int count);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_form_control_at(IntPtr form, long position, ref ControlStruct control);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_form_control_of(IntPtr form, byte[] name, ref ControlStruct control);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_form_get_row(IntPtr form, byte[] control, int row, out IntPtr text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_form_type(IntPtr form, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_form_press_key(IntPtr form, byte[] key);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_form_press_mouse(IntPtr form, byte[] control);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_form_click(IntPtr form, byte[] control);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_form_choose(IntPtr form, byte[] control, int row);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_form_paste(IntPtr form, byte[] text);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_form_close(IntPtr form, int reason);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_use_scripted_user(ref UserStruct user);
        [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
        internal static extern int fiscalon_last_error(ref ErrorStruct error);
    }
}
