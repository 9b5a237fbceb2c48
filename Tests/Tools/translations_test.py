# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""Tests of the check of translations: each fault that it is there for."""

import importlib.util
import pathlib
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
spec = importlib.util.spec_from_file_location("translations", ROOT / "Tools/Checks/translations.py")
translations = importlib.util.module_from_spec(spec)
spec.loader.exec_module(translations)

TEXTS = ["Falls below %1", "Now %1  %2"]


def table(messages, language="zh_Hans", module="Kit"):
    return f'<TS language="{language}"><context><name>{module}</name>{messages}</context></TS>'


def message(english, translated, attributes=""):
    return (f"<message><source>{english}</source>"
            f"<translation {attributes}>{translated}</translation></message>")


FALLS = message("Falls below %1", "跌破 %1")
NOW = message("Now %1  %2", "现价 %1  %2")


class Code(unittest.TestCase):
    def texts(self, code):
        return translations.texts_of("Kit/File.cpp", code)

    def test_texts_are_found_however_they_are_laid_out(self):
        for code, english in [
                ('return platform::localized("Kit", "Quit");', "Quit"),
                ('localized(\n  "Kit", // the module\n  "Falls "\n  "below %1")', "Falls below %1"),
                (r'localized("Kit", "\u2026 \"%1\" \\")', '… "%1" \\'),
                ('localized("Kit", R"(a "b")")', 'a "b"'),
                ("n = 1'000; localized(\"Kit\", \"it's // not over\")", "it's // not over")]:
            self.assertEqual(self.texts(code), ([english], []), code)

    def test_what_is_no_call_is_no_text(self):
        for code in ['// localized("Kit", text)', "/* localized(x) */",
                     "using platform::localized;", "localizedDescription(error)",
                     'auto s = R"x(localized("Kit", n))x";']:
            self.assertEqual(self.texts(code), ([], []), code)

    def test_texts_that_cannot_be_told_are_refused(self):
        for code in ['localized("Kit", text)', 'localized("Kit", b ? "a" : "c")',
                     'localized("Kit", "a" + b)', 'localized(kit, "a")', 'localized("Other", "a")',
                     "map(list, localized)", r'localized("Kit", "\xe9")', 'tr("a")',
                     'QCoreApplication::translate("Kit", "a")']:
            texts, wrong = self.texts("\n" + code)
            self.assertEqual((texts, len(wrong)), ([], 1), code)
            self.assertTrue(wrong[0].startswith("Kit/File.cpp:2: "), wrong[0])


class Tables(unittest.TestCase):
    def faults(self, xml, texts=tuple(TEXTS)):
        return list(translations.faults_of_table("Kit", "zh-Hans", xml, list(texts)))

    def test_each_fault_is_found(self):
        self.assertEqual(self.faults(table(FALLS + NOW)), [])
        for named, messages in [
                ("no translation", FALLS),
                ("no code uses it", FALLS + NOW + message("Rises above %1", "涨破 %1")),
                ("two of it", FALLS + NOW + FALLS),
                ("empty", NOW + message("Falls below %1", " ")),
                ("unfinished", NOW + message("Falls below %1", "跌破 %1", 'type="unfinished"')),
                ("vanished", NOW + message("Falls below %1", "跌破 %1", 'type="vanished"')),
                ("placeholders", NOW + message("Falls below %1", "跌破")),
                ("placeholders", NOW + message("Falls below %1", "跌破 %1 %1")),
                ("blanks", FALLS + message("Now %1  %2", "现价 %1 %2")),
                ("plural", NOW + FALLS.replace("<message", '<message numerus="yes"'))]:
            faults = self.faults(table(messages))
            self.assertEqual(len(faults), 1, faults)
            self.assertIn(named, faults[0])

    def test_a_table_of_another_language_or_module_is_refused(self):
        self.assertEqual(len(self.faults(table(FALLS + NOW, language="zh_TW"))), 1)
        self.assertEqual(len(self.faults(table(FALLS, module="Other"), texts=())), 1)
        self.assertEqual(len(self.faults("<TS>")), 1)


if __name__ == "__main__":
    unittest.main()
