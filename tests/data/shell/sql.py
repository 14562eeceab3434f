# SPDX-License-Identifier: GPL-3.0-or-later
"""Does to the store FILE what the statements say, and prints what they answer. DIE ends it there, with
what has been written of a change that is not finished."""
import os
import sqlite3
import sys

store = sqlite3.connect(sys.argv[1], isolation_level=None)
for statement in sys.argv[2].split(";"):
    if statement.strip() == "DIE":
        os._exit(0)
    for row in store.execute(statement):
        print(*row)
store.close()
