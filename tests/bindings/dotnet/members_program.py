"""A program in C# that calls every member of every class as the table of members tells, and compares what comes of it.
A member that is missing, or of another type, does not compile."""

import json

HEAD = r"""// Written by members_program.py.
using System;
using System.Linq;
using System.Reflection;
using Fiscalon;

internal static class Members
{
    private static int failed;

    private static void Equal<T>(string what, T wanted, Func<T> seen)
    {
        try
        {
            T given = seen();
            if (Equals(wanted, given)) return;
            Console.WriteLine($"{what}: expected <{wanted}>, seen <{given}>");
        }
        catch (Exception error)
        {
            Console.WriteLine($"{what}: expected <{wanted}>, came {error}");
        }
        ++failed;
    }

    private static void Fails(string what, int number, string source, Action act)
    {
        try
        {
            act();
            Console.WriteLine($"{what}: no error {number}");
        }
        catch (FiscalonException error) when (error.Number == number && (source == null || error.Source == source))
        {
            return;
        }
        catch (Exception error)
        {
            Console.WriteLine($"{what}: expected error {number}, came {error}");
        }
        ++failed;
    }

    private static void HasOnly(Type type, params string[] names)
    {
        var others = type.GetMembers(BindingFlags.Public | BindingFlags.Instance | BindingFlags.Static)
            .Where(member => member.DeclaringType != typeof(object) &&
                !(member is MethodInfo method && method.IsSpecialName))
            .Select(member => member.Name).Distinct().Except(names).ToList();
        if (others.Count == 0) return;
        ++failed;
        Console.WriteLine($"{type.Name} has what the table lacks: {string.Join(", ", others)}");
    }

    private static int Main()
    {
"""
TAIL = """        Console.WriteLine($"{failed} failed");
        return failed;
    }
}
"""
# What .NET brings along.
OF_DOTNET = {"Dispose", ".ctor", "IsSame", "At", "GetEnumerator"}


def written(value):
    """A value as C# writes it. The host's True is -1."""
    if isinstance(value, bool):
        return "HostBoolean.True" if value else "HostBoolean.False"
    if isinstance(value, str):
        return '"' + "".join(c if " " <= c <= "~" and c not in '"\\' else f"\\u{ord(c):04x}" for c in value) + '"'
    return repr(value)


def position(value):
    return written(value) if isinstance(value, str) else f"{value}L"


def program(table):
    classes = {each["name"]: each for each in table["classes"]}
    out = []
    for a_class in table["classes"]:
        name = a_class["name"]
        if "of" in a_class:
            out += collection(name, classes[a_class["of"]], table)
            out.append(only(name, [each["name"] for each in table["collection"]]))
        else:
            out += members(a_class, table)
            out.append(only(name, [each["name"] for each in a_class["members"]]))
    return HEAD + "".join(f"        {line}\n" for line in out) + TAIL


def only(name, names):
    listed = ", ".join(json.dumps(each) for each in sorted(OF_DOTNET | set(names)))
    return f"HasOnly(typeof({name}), {listed});"


def made(name):
    # Only a collection makes one.
    return 'new PC4s().Add("", "", "")' if name == "PC4" else f"new {name}()"


def members(a_class, table):
    for member in a_class["members"]:
        what = f"{a_class['name']}.{member['name']}"
        variable = what.replace(".", "_")
        of = what
        if not member.get("process"):
            of = f"{variable}.{member['name']}"
            yield f"var {variable} = {made(a_class['name'])};"
        if "call" in member["kinds"]:
            yield from calls(what, variable, member)
            continue
        yield from properties(what, of, member, table)


def calls(what, variable, member):
    if not member["arguments"]:
        yield f'Equal("{what}", false, () => {variable}.{member["name"]}());'
    yield "FiscalonModule.UseFrontEnd(null);"
    for bad in member.get("bad", []):
        source = json.dumps(member["source"]) if "source" in member else "null"
        yield f'Fails("{what}", {bad[1]}, {source}, () => {variable}.{member["name"]}({written(bad[0])}));'


def properties(what, of, member, table):
    is_set = "let" in member["kinds"] or "set" in member["kinds"]
    is_read = "get" in member["kinds"]
    text = member["type"] == "text"
    truth = member["name"] == "ShowGST58"
    if is_read:
        start = written("") if text else "false" if truth else "null" if member["start"] is None else member["start"]
        kind = "string" if text else "bool" if truth else member["type"] if member["start"] is None else "int"
        yield f'Equal<{kind}>("{what} at first", {start}, () => {of});'
    cases = member.get("cases") or ([[each, each] for each in table["texts"]] if text else [])
    for case in cases if is_set else []:
        if is_read:
            yield f'Equal("{what}", {written(case[1])}, () => {{ {of} = {written(case[0])}; return {of}; }});'
        else:
            yield f'Equal("{what}", 0, () => {{ {of} = {written(case[0])}; return 0; }});'
    for bad in member.get("bad", []):
        yield f'Fails("{what}", {bad[1]}, null, () => {of} = {written(bad[0])});'
    if is_set and is_read and not text and member.get("start", 0) is None:
        kind = member["type"]
        yield (f'Equal("{what}", true, () => {{ var given = new {kind}(); {of} = given; '
               f"return ReferenceEquals(given, {of}); }});")  # fmt: skip
        yield f'Equal<{kind}>("{what}", null, () => {{ {of} = null; return {of}; }});'


def collection(name, member, table):
    fields = [each["name"] for each in member["members"]]
    texts = [", ".join(written(f"{place}{number}") for number in range(len(fields))) for place in "ab"]
    variable = name.lower()
    yield f"var {variable} = new {name}();"
    yield f'Equal("{name}.Count at first", 0, () => {variable}.Count);'
    yield f'Equal("{name}.Add", "a0", () => {variable}.Add({texts[0]}, "key").{fields[0]});'
    yield f'Equal("{name}.Add", "b0", () => {variable}.Add({texts[1]}).{fields[0]});'
    yield f'Fails("{name}.Add", 457, null, () => {variable}.Add({texts[1]}, "key"));'
    yield f'Equal("{name}.Count", 2, () => {variable}.Count);'
    for number, field in enumerate(fields):
        yield f'Equal("{name}.Item", "a{number}", () => {variable}.Item("key").{field});'
        yield f'Equal("{name}.Item", "b{number}", () => {variable}.Item(2).{field});'
    for operation in table["collection"]:
        for bad in operation.get("bad", []):
            yield (f'Fails("{name}.{operation["name"]}", {bad[1]}, null, '
                   f'() => {variable}.{operation["name"]}({position(bad[0])}));')
    yield f'Equal("{name}.NewEnum", "a0b0", () => string.Concat({variable}.Select(each => each.{fields[0]})));'
    yield f'Equal("{name}.Remove", "b0", () => {{ {variable}.Remove("key"); return {variable}.Item(1).{fields[0]}; }});'
    yield f'Equal("{name}.Remove", 0, () => {{ {variable}.Remove(1); return {variable}.Count; }});'
    yield (f'Equal("{name}.Clear", 0, () => {{ {variable}.Add({texts[0]}); {variable}.Clear(); '
           f'return {variable}.Count; }});')
