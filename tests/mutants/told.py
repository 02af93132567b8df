"""What a run has found, for people to read."""

import collections
import datetime
import sys
import textwrap

HEAD = """\
# Mutants

What the tests see of small changes in the sources, one at a time: {sample} changes drawn for each source, all of them
where it has fewer, by the seed {seed}. Made on {date} by

    tests/mutants/run.py {words}

[Mutants](../tests/mutants/README.md) tells how. *Killed* are those with which a test fails, out of those that anyone
could see. *Same* are those that nobody could see; the reasons stand below each table. *Alive* are those without a test.
*Early* are those that the compiler must know and that were not tried, *refused* those that do not compile."""
NEAR = """\

It was a first look: the tests of a source's own folder and the scenarios were asked, and the others of what these left
alive without a reason. Folders that are not told of here were not looked at."""
ROW_HEAD = (
    "| Source | Spots | Drawn | Killed | Same | Alive | Early | Refused |",
    "|---|---:|---:|---:|---:|---:|---:|---:|",
)


def alive_in(count):
    return count["survived"] + count["unreached"]


def score_of(count):
    """How many were killed of those that anyone could see."""
    return f"{count['killed']} of {count['killed'] + alive_in(count)}"


def line_of(source, count, spots):
    return (
        f"{'FAIL' if alive_in(count) else 'OK':5} {source}: {score_of(count)} killed (of {spots} spots;"
        f" {count['same']} the same, {count['early']} early, {count['refused']} refused)"
    )


def table_of(run, folders, known):
    lines = HEAD.format(date=datetime.date.today(), words=" ".join(sys.argv[1:]), **vars(run.options)).splitlines()
    lines += NEAR.splitlines() if run.options.near else []
    for folder in folders:
        inside = [source for source in run.texts if source.startswith(f"{folder}/") and run.of(source)]
        if not inside:
            continue
        sums = sum((run.count(source) for source in inside), collections.Counter())
        lines += ["", f"## {folder}: {score_of(sums)}", "", *ROW_HEAD]
        for source in inside:
            count = run.count(source)
            cells = [f"`{source[len(folder) + 1:]}`", run.totals[source], len(run.of(source)), score_of(count)]
            cells += [count["same"], alive_in(count), count["early"], count["refused"]]
            lines.append(f"| {' | '.join(map(str, cells))} |")
        reasons = [
            f"- `{source[len(folder) + 1:]}`, `{mutant.key}`: {known.reason(source, mutant.key)}"
            for source in inside
            for mutant in run.of(source)
            if run.verdicts[mutant.number] == "same"
        ]
        lines += ["", "Nobody could see:", ""] if reasons else []
        for each in reasons:
            lines += textwrap.wrap(each, 118, subsequent_indent="  ", break_long_words=False, break_on_hyphens=False)
    return "\n".join(lines) + "\n"
