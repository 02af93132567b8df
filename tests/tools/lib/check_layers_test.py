#!/usr/bin/env python3
"""The layering check finds planted offences, and nothing else, in small trees of its own."""

import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[3] / "tools" / "lib"))
sys.dont_write_bytecode = True
import check_layers  # noqa: E402

SOUND_TREE = {
    "core/platform/clock.h": "#pragma once\n#include <compare>\n",
    "core/platform/posix/files.cpp": "#include <sys/stat.h>\n#include <string>\n",
    "core/platform/windows/files.cpp": "#include <windows.h>\n#ifdef WIN32\n#endif\n",
    "core/platform/windows/wide_text.h": "#pragma once\n",
    "frontends/win32/dialog.h": '#include <windows.h>\n#include "core/platform/windows/wide_text.h"\n',
    "component/session.cpp":
        '#include <ole2.h>\n#include "fiscalon_component.h"\n#include "frontends/win32/dialog.h"\n',
    "core/values/money.h": "#pragma once\n",
    "core/forms/form.h": '#include "core/platform/clock.h"\n',
    "core/session.h": '#include "core/forms/form.h"\n#include "core/values/money.h"\n',
    "core/module_to_change.h": "#pragma once\n",
    "core/host_setup.cpp": '#include "core/module_to_change.h"\n',
    "screens/parts/head.h": '#include "core/forms/form.h"\n',
    "screens/general/due_date.h": '#include "core/session.h"\n#include "screens/parts/head.h"\n',
    "validation/rules.h": '#include "core/session.h"\n#include <string_view>\n',
    "frontends/played/player.h": '#include "screens/general/due_date.h"\n',
    "frontends/qt/view.h": "namespace fiscalon {\nclass Form;\n}\n\nnamespace fiscalon::qt {\nclass View;\n}\n",
    "frontends/qt/qt_toolkit.h": "namespace fiscalon {\nclass QtToolkit {};\n}\n",
    "frontends/qt/dialog.h": '#include <QDialog>\n#include <QtWidgets/QLabel>\n#include "core/forms/form.h"\n',
    "tools/fiscalon/main.cpp": '#include <CLI/CLI.hpp>\n#include "frontends/qt/dialog.h"\n',
    "tools/fiscalon/files/terminal.h": '#include "tools/reading/shown_record.h"\n',
    "tools/fiscalon/files/posix/terminal.cpp": '#include <unistd.h>\n#include "tools/fiscalon/files/terminal.h"\n',
    "tools/reading/shown_record.h": '#include "core/session.h"\n#include "validation/rules.h"\n',
    "tools/desk/desk.cpp": '#include <QApplication>\n#include "tools/reading/shown_record.h"\n',
    "tests/core/session_test.cpp": '#include <gtest/gtest.h>\n#include "frontends/played/player.h"\n',
    "core/forms/CMakeLists.txt": "fiscalon_layer(forms\n  DEPENDS platform\n  SOURCES\n    form.cpp)\n",
}


class CheckLayers(unittest.TestCase):
    def offences_with(self, path, text):
        with tempfile.TemporaryDirectory() as folder:
            tree = Path(folder)
            for name, content in {**SOUND_TREE, path: text}.items():
                (tree / name).parent.mkdir(parents=True, exist_ok=True)
                (tree / name).write_text(content, encoding="utf-8")
            return check_layers.offences(tree)

    def assert_one(self, path, text, offence):
        self.assertEqual(self.offences_with(path, text), [offence])

    def test_a_sound_tree_passes(self):
        self.assertEqual(self.offences_with("core/values/money.h", SOUND_TREE["core/values/money.h"]), [])

    def test_an_upward_include_is_found_with_its_line(self):
        self.assert_one(
            "core/values/money.h",
            '#pragma once\n\n#include "core/session.h"\n',
            'core/values/money.h:3: values may not include "core/session.h" of core',
        )

    def test_a_blank_before_and_after_the_hash_hides_nothing(self):
        self.assert_one(
            "core/session.h",
            '  #  include "screens/general/due_date.h"\n',
            'core/session.h:1: core may not include "screens/general/due_date.h" of screens',
        )

    def test_a_part_may_not_see_its_screens(self):
        self.assert_one(
            "screens/parts/head.h",
            '#include "screens/general/due_date.h"\n',
            'screens/parts/head.h:1: parts may not include "screens/general/due_date.h" of screens',
        )

    def test_siblings_may_not_see_each_other(self):
        self.assert_one(
            "validation/rules.h",
            '#include "screens/general/due_date.h"\n',
            'validation/rules.h:1: validation may not include "screens/general/due_date.h" of screens',
        )
        self.assert_one(
            "validation/rules.h",
            '#include "core/forms/form.h"\n',
            'validation/rules.h:1: validation may not include "core/forms/form.h" of forms',
        )

    def test_core_and_tests_alone_change_the_module(self):
        line = '#include "core/module_to_change.h"\n'
        for path in ("screens/general/due_date.h", "tools/fiscalon/main.cpp", "bench/bench.cpp", "core/forms/form.h"):
            self.assert_one(
                path,
                line,
                f'{path}:1: "core/module_to_change.h" is for core alone: '
                "others set the module by core/host_setup.h and Levyra",
            )
        self.assertEqual(self.offences_with("tests/core/session_test.cpp", line), [])

    def test_no_layer_sees_the_tools(self):
        self.assert_one(
            "frontends/played/player.h",
            '#include "tools/fiscalon/main.cpp"\n',
            'frontends/played/player.h:1: played may not include "tools/fiscalon/main.cpp", which stands above it',
        )

    def test_what_programs_share_does_not_see_them(self):
        self.assert_one(
            "tools/reading/shown_record.h",
            '#include "tools/desk/desk.cpp"\n',
            'tools/reading/shown_record.h:1: reading may not include "tools/desk/desk.cpp", which stands above it',
        )
        self.assert_one(
            "tools/fiscalon/files/terminal.h",
            '#include "tools/fiscalon/main.cpp"\n',
            'tools/fiscalon/files/terminal.h:1: files may not include "tools/fiscalon/main.cpp", which stands above it',
        )
        self.assert_one(
            "tools/reading/shown_record.h",
            '#include "tools/fiscalon/files/terminal.h"\n',
            'tools/reading/shown_record.h:1: reading may not include "tools/fiscalon/files/terminal.h" of files',
        )

    def test_qt_stays_in_its_front_end_and_the_desk(self):
        for path in ("screens/general/due_date.h", "tools/fiscalon/main.cpp"):
            for header in ("QString", "QtCore/QString", "qglobal.h"):
                self.assert_one(
                    path,
                    f"#include <{header}>\n",
                    f"{path}:1: <{header}>: Qt belongs into frontends/qt/ and tools/desk/",
                )

    def test_layers_use_the_standard_library_alone(self):
        self.assert_one(
            "core/session.h",
            "#include <boost/any.hpp>\n",
            "core/session.h:1: core may not include <boost/any.hpp>, which is not of the standard library",
        )

    def test_only_the_platform_layer_calls_the_system(self):
        self.assert_one(
            "core/session.h",
            "#include <unistd.h>\n",
            "core/session.h:1: core may not include <unistd.h>, which is not of the standard library",
        )

    def test_each_system_has_folders_of_its_own(self):
        self.assert_one(
            "core/platform/files.cpp",
            "#include <sys/stat.h>\n",
            "core/platform/files.cpp:1: platform may not include <sys/stat.h>, which is not of the standard library",
        )
        self.assert_one(
            "core/platform/posix/clock.cpp",
            "#include <windows.h>\n",
            "core/platform/posix/clock.cpp:1: platform may not include <windows.h>, "
            "which is not of the standard library",
        )
        for path in ("core/platform/locale.cpp", "tools/fiscalon/main.cpp"):
            self.assert_one(
                path,
                '#include "core/platform/windows/wide_text.h"\n',
                f'{path}:1: "core/platform/windows/wide_text.h" is of one system',
            )

    def test_nothing_else_asks_which_system_it_is_on(self):
        for line in ("#ifdef _WIN32", "#if defined(__linux__)", "# elif __has_include(<unistd.h>)", "#ifndef WIN32"):
            self.assert_one(
                "tools/fiscalon/main.cpp",
                f"{line}\n",
                "tools/fiscalon/main.cpp:1: what differs between systems belongs into a folder of one system",
            )

    def test_paths_are_made_and_read_in_one_place(self):
        meant = 'Utf8Path makes paths and Utf8Of reads them ("core/platform/utf8_path.h"); "auto" holds what they give'
        for line in (
            "namespace fs = std::filesystem;",
            "using std::filesystem::path;",
            "using namespace std::filesystem;",
            "const std::filesystem::path file = ToUtf8(name);",
            "std::filesystem::path file(name);",
            "return std::filesystem::path(name).filename();",
            "bool IsThere(const std::string& name) { return std::filesystem::exists(name, ignored); }",
            "return twin.string();",
            "return twin.parent_path().u8string();",
        ):
            self.assert_one("tools/fiscalon/main.cpp", f"\n{line}\n", f"tools/fiscalon/main.cpp:2: {meant}")

    def test_paths_may_be_passed_on_and_asked(self):
        for line in (
            "void Gather(const std::filesystem::path& folder);",
            "std::filesystem::path path_;",
            "std::filesystem::path MakeTemporaryFolder();",
            "const auto file = Utf8Path(name);",
            "return std::filesystem::exists(Utf8Path(name), ignored) && std::filesystem::is_directory(place, ignored);",
            "return text.str();",
        ):
            self.assertEqual(self.offences_with("tools/fiscalon/main.cpp", line), [], line)

    def test_paths_are_of_wide_characters_in_the_folders_of_windows(self):
        for path in ("core/platform/utf8_path.h", "core/platform/windows/files.cpp", "tests/core/session_test.cpp"):
            self.assertEqual(self.offences_with(path, "return std::filesystem::path(wide);\n"), [], path)

    def test_includes_start_at_the_root(self):
        self.assert_one(
            "core/values/money.h",
            '#include "clock.h"\n',
            'core/values/money.h:1: "clock.h" is no file of the project, seen from its root',
        )

    def test_a_target_that_links_upwards_is_found(self):
        self.assert_one(
            "core/forms/CMakeLists.txt",
            "\nfiscalon_layer(forms\n  DEPENDS platform core\n  SOURCES\n    form.cpp)\n",
            "core/forms/CMakeLists.txt:2: the target of forms may not link core",
        )

    def test_a_front_end_keeps_to_its_namespace(self):
        self.assert_one(
            "frontends/qt/view.h",
            "#pragma once\n\nnamespace fiscalon {\nclass View {};\n}\n",
            "frontends/qt/view.h:3: what qt defines lies in fiscalon::qt, but for its toolkits",
        )
        self.assert_one(
            "frontends/win32/view.cpp",
            "namespace fiscalon::qt {\nclass View {};\n}\n",
            "frontends/win32/view.cpp:1: what win32 defines lies in fiscalon::win32, but for its toolkits",
        )

    def test_an_unknown_layer_is_found(self):
        self.assert_one(
            "core/forms/CMakeLists.txt",
            "fiscalon_layer(network SOURCES form.cpp)\n",
            "core/forms/CMakeLists.txt:1: the layer network is not known to this check",
        )

    def test_an_empty_tree_is_no_pass(self):
        with tempfile.TemporaryDirectory() as folder:
            self.assertEqual(check_layers.offences(Path(folder)), [f"{folder}: no source file found"])


if __name__ == "__main__":
    unittest.main()
