# SPDX-License-Identifier: GPL-3.0-or-later
"""A source tree with one violation of each kind, and what the check of the layers says to it."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

CHECK = pathlib.Path(__file__).with_name("check_layers.py")
LICENCE = "// SPDX-License-Identifier: GPL-3.0-or-later\n"


def check(files):
    with tempfile.TemporaryDirectory() as folder:
        for name, text in files.items():
            file = pathlib.Path(folder, "src", name)
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text, encoding="utf-8")
        done = subprocess.run([sys.executable, CHECK, folder], capture_output=True, text=True)
        return done.returncode, done.stdout.splitlines()


class CheckLayers(unittest.TestCase):
    def test_accepts_downward_includes(self):
        self.assertEqual(check({
            "platform/A.h": LICENCE + "#include <vector>\n",
            "platform/A.cpp": LICENCE + '#include "platform/A.h"\n#include <sqlite3.h>\n',
            "ui/W.h": LICENCE + '#include <QWidget>\n#include "platform/A.h"\n',
        }), (0, ["The layers are in order."]))

    def test_names_each_violation(self):
        status, lines = check({
            "platform/A.h": LICENCE + "\n#include <fftw3.h>\n",
            "platform/B.h": LICENCE + '#include "model/M.h"\n',
            "model/M.h": LICENCE + '  #  include "A.h"\n',
            "model/N.cpp": LICENCE + "#include <libavutil/frame.h>\n",
            "tab/T.h": LICENCE,
            "arrange/R.cpp": LICENCE + '#include "tab/T.h"\n',
            "precise/P.cpp": LICENCE + '#include "model/M.h"\n',
            "cli/C.cpp": LICENCE + "#include <QtCore/QString>\n",
            "export/E.cpp": "int x;\n",
            "misc/X.h": LICENCE,
        })
        self.assertEqual(status, 1)
        self.assertEqual([line.split(": ")[0] for line in lines], [
            "src/arrange/R.cpp:2", "src/cli/C.cpp:2", "src/misc/X.h:1", "src/model/M.h:2",
            "src/model/N.cpp:2", "src/platform/A.h:3", "src/platform/B.h:2", "src/precise/P.cpp:2",
            "src/export/E.cpp:1"])

    def test_names_files_that_are_hard_to_find(self):
        files = {f"{folder}{i}.h": LICENCE for folder in ("tab/text/T", "../tests/support/S")
                 for i in range(26)}
        self.assertEqual(check({**files, "ui/views/T7.h": LICENCE}), (1, [
            "src/ui/views/T7.h:1: has the name of src/tab/text/T7.h",
            "src/tab/text:1: holds 26 files, more than 25",
            "tests/support:1: holds 26 files, more than 25"]))

    def test_compares_what_a_layer_says_with_what_it_includes(self):
        said = LICENCE.replace("//", "#") + "korvel_layer(tab\n  USES music model\n)\n"
        self.assertEqual(check({
            "tab/CMakeLists.txt": said,
            "tab/T.cpp": LICENCE + '#include "music/M.h"\n#include "platform/P.h"\n',
            "music/M.h": LICENCE, "platform/P.h": LICENCE,
        }), (1, ["src/tab/CMakeLists.txt:1: names model, which is not included",
                 "src/tab/CMakeLists.txt:1: says nothing of platform, which is included"]))

    def test_fails_where_there_is_nothing_to_check(self):
        self.assertEqual(check({})[0], 1)


if __name__ == "__main__":
    unittest.main()
