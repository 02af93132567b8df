// The program of the host guide for C#: compiled by mcs Program.cs Fiscalon.cs
using System;
using Fiscalon;

static class Program
{
    // What a user would do: a taxation year end, the amount in cents, OK.
    static void FillAndConfirm(Form form)
    {
        form.Type("202412");  // the sixth digit moves on to the amount
        form.Type("12345");
        form.Click("cmdOK");
    }

    static Answer TellABox(Box box)
    {
        Console.Error.WriteLine("The screen says: " + box.Text);
        return box.DefaultAnswer;
    }

    static int Main()
    {
        Console.OutputEncoding = new System.Text.UTF8Encoding(false);
        FiscalonModule.UseScriptedUser(new ScriptedUser { OnForm = FillAndConfirm, OnBox = TellABox });

        using (var payment = new Levyra())
        {
            payment.CompName = "Summit Levies";
            payment.PaidAmount = "12345";  // cents
            payment.PaidDate = "06152026";
            payment.EnterName = "Hélène Côté";
            payment.EnterTitle = "Clerk";
            payment.SeqNumber = "0001";

            try
            {
                if (!payment.ShowLevyraScreen("15"))
                {
                    Console.Error.WriteLine("Cancelled.");
                    return 1;
                }
            }
            catch (FiscalonException error)
            {
                Console.Error.WriteLine(error.Source + ": " + error.Message);
                return 2;
            }

            foreach (PC4 record in payment.PC4Records) Console.WriteLine(record.Description);
            return 0;
        }
    }
}
