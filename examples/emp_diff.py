"""The main job from Python: the ALTER script between the two descriptions of SCOTT.EMP.

Run after a build, with the module's folder on the path:
    PYTHONPATH=build/python /usr/bin/python3 examples/emp_diff.py
"""
import json
import pathlib
import sys

import qarvelt

here = pathlib.Path(__file__).parent
old = json.loads((here / "emp_old.json").read_text())
new = json.loads((here / "emp_new.json").read_text())

try:
    script = qarvelt.diff(old, new)
except qarvelt.Error as error:
    sys.exit("qarvelt: %s" % error)
for warning in script.warnings:
    print("warning:", warning, file=sys.stderr)
print(script.text(), end="")
