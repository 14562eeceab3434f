# SPDX-License-Identifier: GPL-3.0-or-later
"""Archives of a few functions that call each other, and what the check of the symbols says."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

CHECK = pathlib.Path(__file__).with_name("check_symbols.py")
COMPILER = sys.argv.pop(1)


def check(layers):
    """layers: the C++ source of each layer, by name."""
    with tempfile.TemporaryDirectory() as folder:
        archives = []
        for layer, source in layers.items():
            path = pathlib.Path(folder, layer)
            path.with_suffix(".cpp").write_text(source, encoding="utf-8")
            subprocess.run([COMPILER, "-c", f"{path}.cpp", "-o", f"{path}.o"], check=True)
            subprocess.run(["ar", "rc", f"{path}.a", f"{path}.o"], check=True)
            archives.append(f"{layer}={path}.a")
        done = subprocess.run([sys.executable, CHECK, *archives], capture_output=True, text=True)
        return done.returncode, done.stdout.splitlines()


class CheckSymbols(unittest.TestCase):
    def test_names_calls_upwards_and_sideways(self):
        status, lines = check({
            "model": "int draw(int); int ownOne() { return draw(1); }",
            "precise": "int ownOne(); int hear() { return ownOne(); }",
            "arrange": "int ownOne(); int hear(); int name() { return ownOne() + hear(); }",
            "tab": "int name(); int draw(int x) { return x + name(); }",
        })
        self.assertEqual((status, lines), (1, [
            "model must not use tab: draw(int)",
            "precise must not use model: ownOne()",
            "arrange must not use precise: hear()",
        ]))

    def test_what_is_inline_belongs_to_everybody(self):
        shared = "struct S { virtual ~S() {} }; template <class T> T twice(T t) { return t + t; }"
        self.assertEqual(check({
            "platform": shared + "int below() { S s; return twice(1); }",
            "ui": shared + "int below(); int above() { S s; return twice(below()); }",
        }), (0, ["No layer needs what stands above it."]))


if __name__ == "__main__":
    unittest.main()
