#!/usr/bin/env python3
"""What is installed for people to read leads only to what is installed: links, pictures, and files that are named,
unless they are said to be of the sources."""

import os
import re
import subprocess
import tempfile
import unittest
from pathlib import Path

TREE = Path(__file__).resolve().parents[2]
BUILD = os.environ.get("FISCALON_BUILD", "")
CODE = re.compile(r"^```.*?^```$", re.MULTILINE | re.DOTALL)
LINK = re.compile(r"\]\(([^)\s#]+)[^)]*\)|<img src=\"([^\"]+)\"")
NAMED = re.compile(r"`([\w.-]+(?:/[\w.-]+)*\.(?:h|cpp|md|py))`(?!\s+of the sources)")


def offences_of(page, roots):
    """What a page leads to that is not there. Names may start from the page, or from any of the roots."""
    text = CODE.sub("", page.read_text(encoding="utf-8"))
    links = [first or second for first, second in LINK.findall(text)]
    # The API pages are made for packages alone, where tools/check follows all links.
    missing = [link for link in links if not re.match(r"https?:|api/(?:\w+/)?index\.html$", link)
               and not (page.parent / link).exists()]
    return missing + [name for name in NAMED.findall(text)
                      if not any((root / name).exists() for root in [page.parent, *roots])]


class InstalledDocuments(unittest.TestCase):
    @unittest.skipUnless(BUILD, "there is no build tree to install from")
    def test_lead_only_to_what_is_installed(self):
        with tempfile.TemporaryDirectory() as prefix:
            for component in ("documents", "development", "c_development"):
                command = ["cmake", "--install", BUILD, "--component", component, "--prefix", prefix]
                subprocess.run(command, check=True, capture_output=True)
            documents = [folder.parent for folder in Path(prefix).rglob("docs")]
            self.assertEqual(len(documents), 1)
            include = Path(prefix) / "include/fiscalon"
            pages = sorted(page for page in documents[0].rglob("*.md") if page.name != "CHANGELOG.md")
            names = {page.name for page in pages}
            self.assertLessEqual({"host-guide.md", "host-guide-cpp.md", "batch-guide.md", "operator-guide.md",
                                  "README.md"}, names)
            for page in pages:
                self.assertEqual(offences_of(page, [documents[0], include]), [], page.name)
            changes = (documents[0] / "CHANGELOG.md").read_text(encoding="utf-8")
            self.assertNotRegex(changes, r"\]\((?!https?:)", "it is read in many places")

    def test_of_the_package_for_windows_lead_only_to_what_is_in_it(self):
        """There the guides lie beside the examples."""
        with tempfile.TemporaryDirectory() as package:
            root = Path(package)
            for name in ("windows-guide.md", "operator-guide.md", "operator-guide", "operator-guide.fr.md",
                         "operator-guide.fr"):
                (root / name).symlink_to(TREE / "docs" / name)
            (root / "examples").symlink_to(TREE / "examples/windows")
            (root / "fiscalon_component.h").touch()
            for name in ("LICENSE", "CHANGELOG.md"):
                (root / name).symlink_to(TREE / name)
            for guide in ("windows-guide.md", "operator-guide.md", "operator-guide.fr.md"):
                self.assertEqual(offences_of(root / guide, [root]), [], guide)


if __name__ == "__main__":
    unittest.main()
