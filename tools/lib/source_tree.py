"""What a tree of sources says of itself: its version, the changes of a version, its files."""

import datetime
import re
import shutil
import subprocess
from pathlib import Path

TREE = Path(__file__).resolve().parents[2]


def version(tree=TREE):
    """The one version that all others are made from."""
    text = (tree / "CMakeLists.txt").read_text(encoding="utf-8")
    return re.search(r"(?m)^project\(fiscalon VERSION (\S+)", text)[1]


def changes(tree=TREE):
    """The changelog as (version, date, text), the newest first; without a date where the version is not closed."""
    text = (tree / "CHANGELOG.md").read_text(encoding="utf-8")
    heads = list(re.finditer(r"(?m)^## \[([^\]]+)\](?: - (\d{4}-\d\d-\d\d))?\n", text))
    ends = [head.start() for head in heads[1:]] + [len(text)]
    return [(head[1], head[2], text[head.end():end].strip()) for head, end in zip(heads, ends)]


def source_date(tree=TREE):
    """The moment that stands in whatever is made of this tree, in seconds: that of its newest version."""
    dates = [date for _, date, _ in changes(tree) if date] or ["2026-01-01"]
    return int(datetime.datetime.fromisoformat(f"{dates[0]}T00:00:00+00:00").timestamp())


def files(tree=TREE):
    """The project's own files: what git keeps, or would keep."""
    told = ["git", "-C", tree, "ls-files", "-z", "--cached", "--others", "--exclude-standard"]
    listed = subprocess.run(told, check=True, capture_output=True, text=True).stdout
    return sorted(name for name in listed.split("\0") if name and (tree / name).is_file())


def copy(into, tree=TREE):
    """Puts the project's own files into another folder."""
    for name in files(tree):
        (into / name).parent.mkdir(parents=True, exist_ok=True)
        shutil.copy2(tree / name, into / name)
