#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

"""validate.py SCHEMA FILE...: a line a file, "NAME valid" or "NAME refused", by the JSON Schema in SCHEMA, which has to
be one itself. Takes Debian's python3-jsonschema."""

import json
import pathlib
import sys

from jsonschema import Draft202012Validator

schema = json.loads(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"))
Draft202012Validator.check_schema(schema)
validator = Draft202012Validator(schema)
for path in map(pathlib.Path, sys.argv[2:]):
    valid = validator.is_valid(json.loads(path.read_text(encoding="utf-8")))
    print(path.stem, "valid" if valid else "refused")
