#!/usr/bin/python3
"""usage: check-schema.py SCHEMA FILE

Checks every line of FILE, a JSON object each, against SCHEMA. The exit status is 1 when one does not hold, and 77 where
the validator (package python3-jsonschema) is not installed.
"""

import json
import sys

try:
    import jsonschema
except ImportError:
    sys.exit((print("python3-jsonschema is not installed", file=sys.stderr), 77)[1])

with open(sys.argv[1]) as file:
    schema = json.load(file)
jsonschema.Draft202012Validator.check_schema(schema)
validator = jsonschema.Draft202012Validator(schema)

wrong = 0
with open(sys.argv[2]) as file:
    for line in file:
        document = json.loads(line)
        for error in validator.iter_errors(document):
            wrong = 1
            path = "/".join(str(part) for part in error.absolute_path)
            print(f"{document.get('command')}: /{path}: {error.message}", file=sys.stderr)
sys.exit(wrong)
