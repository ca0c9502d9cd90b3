#!/usr/bin/env python3
"""Checks what `orvida-catalog check --format sarif` writes against the public schema of SARIF 2.1.0.

  check.py ORVIDA-CATALOG FOLDER

Checks the catalogs in FOLDER one by one, all in one report, and what cannot be read.
"""
import json
import pathlib
import subprocess
import sys

import jsonschema

SCHEMA = json.loads(pathlib.Path(__file__).with_name('sarif-2.1.0-rtm.5.json').read_text(encoding='utf-8'))


def report(tool, folder, *names):
    """The report on the files, in which what the schema cannot say has been looked at."""
    process = subprocess.run([tool, 'check', '--format', 'sarif', '--all', *names], cwd=folder,
                             capture_output=True, check=False)
    assert process.returncode in (0, 1, 2) and not process.stderr, process
    log = json.loads(process.stdout)
    jsonschema.validate(log, SCHEMA)
    run = log['runs'][0]
    assert run['invocations'][0]['executionSuccessful'] == (process.returncode < 2), names
    rules = run['tool']['driver']['rules']
    for result in run['results']:
        assert rules[result['ruleIndex']]['id'] == result['ruleId'], result
        region = result['locations'][0]['physicalLocation']['region']
        assert (region['startLine'], region['startColumn']) <= (region['endLine'], region['endColumn']), result
    return run['results']


def main():
    tool, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    names = sorted(path.name for path in folder.glob('*.xml'))
    found = [report(tool, folder, name) for name in names]
    assert report(tool, folder, *names) == sum(found, []) and sum(map(len, found)) > 20, found
    assert [result['ruleId'] for result in report(tool, folder, 'not there.xml')] == ['file-not-read']


if __name__ == '__main__':
    main()
