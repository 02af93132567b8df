"""Changes of which nobody could see anything, each with its reason."""

import re


class Known:
    """A list of them: a line with the source and the change, and the reason indented below it."""

    def __init__(self, text):
        self.reasons = {}
        key = None
        for line in text.splitlines():
            if line.startswith("#") or not line.strip():
                key = key if line.strip() else None
            elif line[0] != " ":
                source, _, change = line.partition(": ")
                key = (source, change.strip())
                self.reasons[key] = ""
            elif key is not None:
                self.reasons[key] = f"{self.reasons[key]} {line.strip()}".strip()

    @classmethod
    def read(cls, path):
        return cls(path.read_text(encoding="utf-8") if path.exists() else "")

    def reason(self, source, key):
        """Why nobody can see it; "" if it is not listed. What stands on several lines of a source is listed once."""
        return self.reasons.get((source, key)) or self.reasons.get((source, re.sub(r" #\d+$", "", key)), "")
