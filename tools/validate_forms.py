"""Validates form files: validate_forms.py SCHEMA FORM... prints "FORM: PATH: what is wrong" a line, sorted by place.

A schema that is itself invalid is an error of its own, with exit status 2.
"""
import datetime
import json
import sys
import tomllib

import jsonschema


def as_json(value):
    if isinstance(value, dict):
        return {key: as_json(item) for key, item in value.items()}
    if isinstance(value, list):
        return [as_json(item) for item in value]
    if isinstance(value, (datetime.date, datetime.datetime, datetime.time)):
        return value.isoformat()
    return value


def main(schema_path, *forms):
    with open(schema_path, encoding="utf-8") as file:
        schema = json.load(file)
    try:
        jsonschema.Draft7Validator.check_schema(schema)
    except jsonschema.SchemaError as error:
        print(f"{schema_path}: {error.message}")
        return 2
    validator = jsonschema.Draft7Validator(schema)
    found = False
    for form in forms:
        with open(form, "rb") as file:
            content = as_json(tomllib.load(file))
        for error in sorted(validator.iter_errors(content), key=lambda error: list(map(str, error.path))):
            print(f"{form}: {'.'.join(map(str, error.path))}: {error.message}")
            found = True
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
