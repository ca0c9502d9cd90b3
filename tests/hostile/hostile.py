#!/usr/bin/env python3
"""Loads and checks hostile files, each in a process with a small stack and limits of memory and time.

  hostile.py PROGRAM [--large] [--sanitized] [WORD]

PROGRAM is hostile-load. Prints a table in Markdown; fails if a file is not read as expected. --large uses files
for measuring, --sanitized allows the stack and memory that sanitizers need, WORD selects the files with it in
their names.
"""
import os
import resource
import subprocess
import sys
import tempfile
import threading

MEGABYTE = 1 << 20
COLUMN = ('<COL><COL_Profile_FK>P%d</COL_Profile_FK><COL_Column_ID>AC</COL_Column_ID>'
          '<COL_DataType>TXT</COL_DataType></COL>\n')
CODE_CLASS = '<CLASS><CLASS_PK>C</CLASS_PK></CLASS>\n'
LIST_CLASS = '<LC><LC_PK>L</LC_PK><LC_Profile_FK>P0</LC_Profile_FK><LC_Class_ID>%s</LC_Class_ID></LC>\n'
GOOD = '<OVCAT><CATALOG><CAT_Style>7</CAT_Style></CATALOG>' + CODE_CLASS + '</OVCAT>'


def catalog(count, record, before=''):
    return '<OVCAT>' + before + ''.join(map(record, range(count))) + '</OVCAT>'


def item(number, parent, order=0):
    return (f'<CHAREXT><CE_PK>{number}</CE_PK><CE_CharExt_REF>{parent}</CE_CharExt_REF>'
            f'<CE_SortOrder>{order}</CE_SortOrder></CHAREXT>\n')


def extension(number):
    """A field of the item C in the column of COLUMN, whose id is scrambled there."""
    return (f'<PARAMX><PX_PK>{number}</PX_PK><PX_BaseCode_FK>C</PX_BaseCode_FK><PX_Param_FK>{number}</PX_Param_FK>'
            '<PX_Column_ID>+</PX_Column_ID></PARAMX>\n')


def parameter(number, order):
    return f'<PARAM><PARAM_PK>{number}</PARAM_PK><PARAM_SortOrder>{order}</PARAM_SortOrder></PARAM>\n'


def list_item(number, order=0):
    return (f'<LIST><LIST_Class_FK>L</LIST_Class_FK><LIST_Item>{number}</LIST_Item>'
            f'<LIST_SortOrder>{order}</LIST_SortOrder></LIST>\n')


def nested(count, name, before='', after=''):
    return '<OVCAT>' + before + f'<{name}>' * count + f'</{name}>' * count + after + '</OVCAT>'


def code(count, text):
    return f'<OVCAT><BASECODE><BC_PK>B</BC_PK><BC_Code>{text * count}</BC_Code></BASECODE></OVCAT>'


def entities(levels, references):
    declarations = "<!ENTITY e0 '" + 'x' * 400 + "'>"
    for level in range(1, levels):
        declarations += f"<!ENTITY e{level} '" + f'&e{level - 1};' * 10 + "'>"
    return (f'<!DOCTYPE OVCAT [{declarations}]><OVCAT><CLASS><CLASS_PK>C</CLASS_PK>'
            f'<CLASS_Remarks>{references}</CLASS_Remarks></CLASS></OVCAT>')


def smallest_pivots(count):
    """Sort orders that make each pivot of the ordering's quicksort the smallest of its range but one."""
    places = list(range(count))
    orders = [0] * count
    start = 0
    while count - start > 3:
        middle = start + (count - start) // 2
        orders[places[start]] = start
        orders[places[middle]] = start + 1
        places[middle] = places[count - 1]
        places[count - 1] = places[start + 1]
        start += 2
    for place in range(start, count):
        orders[places[place]] = place
    return orders


def greatest_pivots(count):
    """The same with the greatest but one."""
    places = list(range(count))
    orders = [0] * count
    end = count
    while end > 5:
        middle = end // 2
        orders[places[end - 1]] = end
        orders[places[middle]] = end - 1
        places[middle] = places[end - 2]
        end -= 2
    for place in range(end):
        orders[places[place]] = place
    return orders


def worst_list(count, pivots):
    orders = pivots(count)
    return catalog(count, lambda n: list_item(n, orders[n]), LIST_CLASS % '05')


def worst_fields(count, pivots):
    orders = pivots(count)
    return catalog(count, lambda n: parameter(n, orders[n]) + extension(n), CODE_CLASS + COLUMN % 0)


# Name, large and small count, content, items that are loaded (0: refused), profiles to ask for.
FILES = [
    ('elements nested in an unknown one', 10**7, 50000, lambda n: nested(n, 'a'), lambda n: 1, 1),
    ('elements nested in a field', 10**7, 50000,
     lambda n: nested(n, 'a', '<CLASS><CLASS_PK>C</CLASS_PK>', '</CLASS>'), lambda n: 2, 1),
    ('roots in roots', 10**7, 50000, lambda n: nested(n, 'OVCAT'), lambda n: 1, 1),
    ('siblings', 10**6, 10000, lambda n: catalog(n, lambda i: item(i, 0, i * 7919 % 10007)), lambda n: n + 1, 1),
    ('chain of extensions', 10**6, 50000, lambda n: catalog(n, lambda i: item(i, i - 1)), lambda n: n + 1, 1),
    ('one loop of parents', 10**6, 50000, lambda n: catalog(n, lambda i: item(i, (i + 1) % n)), lambda n: n + 1, 1),
    ('loops of one item', 10**6, 10000, lambda n: catalog(n, lambda i: item(i, i)), lambda n: n + 1, 1),
    ('orphans', 10**6, 10000, lambda n: catalog(n, lambda i: item(i, -1)), lambda n: n + 1, 1),
    ('list items, pivots among the smallest', 10**6, 50000, lambda n: worst_list(n, smallest_pivots), lambda n: 1, 1),
    ('list items, pivots among the greatest', 10**6, 50000, lambda n: worst_list(n, greatest_pivots), lambda n: 1, 1),
    ('fields, pivots among the smallest', 10**6, 20000, lambda n: worst_fields(n, smallest_pivots), lambda n: 2, 1),
    ('fields, pivots among the greatest', 10**6, 20000, lambda n: worst_fields(n, greatest_pivots), lambda n: 2, 1),
    ('profiles', 10**6, 2000,
     lambda n: catalog(n, lambda i: f'<CATPRO><PRO_PK>P{i}</PRO_PK></CATPRO>' + COLUMN % i, CODE_CLASS + extension(0)),
     lambda n: 2, None),
    ('fields of one item, times profiles', 1000, 50,
     lambda n: catalog(n, lambda i: COLUMN % i + extension(i), CODE_CLASS), lambda n: 2, None),
    ('list classes with one key, times items', 1000, 50,
     lambda n: catalog(n, lambda i: LIST_CLASS % ('05' * (i + 1)) + list_item(i)), lambda n: 1, 1),
    ('characters of a key', 10**8, 10**6, lambda n: f'<OVCAT><CLASS><CLASS_PK>{"k" * n}</CLASS_PK></CLASS></OVCAT>',
     lambda n: 2, 1),
    ('characters of a scrambled code', 10**8, 10**6, lambda n: code(n, '5'), lambda n: 2, 1),
    ('characters of a scrambled code that are no digits', 10**8, 10**6, lambda n: code(n // 2, '+5'), lambda n: 2, 1),
    ("characters of an element's name", 10**8, 10**6, lambda n: f'<OVCAT><{"n" * n}/></OVCAT>', lambda n: 0, 1),
    ('attributes of an element', 10**5, 1000, lambda n: '<OVCAT' + ''.join(f" a{i}=''" for i in range(n)) + '/>',
     lambda n: 1, 1),
    ('levels of entities, each ten of the one below', 9, 9, lambda n: entities(n, f'&e{n - 1};'), lambda n: 0, 1),
    ("entities just below the reader's limit", 30000, 300, lambda n: entities(2, '&e1;' * n), lambda n: 2, 1),
]


def sparse(folder, beginning):
    """A file that continues with 4 GB of zeros."""
    path = os.path.join(folder, 'sparse.xml')
    with open(path, 'w') as file:
        file.write(beginning)
    os.truncate(path, 4 << 30)
    return path


def link_to_itself(folder):
    path = os.path.join(folder, 'loop.xml')
    os.symlink(path, path)
    return path


def pipe(folder, name, content):
    """A named pipe with a process that writes the content once, one letter at a time."""
    path = os.path.join(folder, name)
    os.mkfifo(path)

    def write():
        with open(path, 'wb', buffering=0) as writer:
            for letter in content.encode():
                writer.write(bytes([letter]))

    threading.Thread(target=write, daemon=True).start()
    return path


# Name, path, items that are loaded (0: refused), style; None where nothing else is asked for: pipes are read once.
PATHS = [
    ('/dev/zero', lambda folder: '/dev/zero', 0, 0),
    ('/dev/full', lambda folder: '/dev/full', 0, 0),
    ('/dev/null', lambda folder: '/dev/null', 0, 0),
    ('/proc/self/mem', lambda folder: '/proc/self/mem', 0, 0),
    ('a folder', lambda folder: folder, 0, 0),
    ('hole in the document', lambda folder: sparse(folder, '<OVCAT>'), 0, 0),
    ('hole in a text', lambda folder: sparse(folder, '<CLASS><CLASS_PK>a'), 0, 0),
    ('hole in a comment', lambda folder: sparse(folder, '<OVCAT><!--'), 0, 0),
    ('hole in an attribute', lambda folder: sparse(folder, "<OVCAT a='"), 0, 0),
    ('hole in a name', lambda folder: sparse(folder, '<OVCAT'), 0, 0),
    ('hole after the style', lambda folder: sparse(folder, GOOD[:-8]), 0, 7),
    ('loop of links', link_to_itself, 0, 0),
    ('name of 5,000 letters', lambda folder: os.path.join(folder, 'x' * 5000), 0, 0),
    ('name of several lines', lambda folder: os.path.join(folder, 'a\nb'), 0, 0),
    ('no name', lambda folder: '', 0, 0),
    ('pipe whose writer closes it at the end', lambda folder: pipe(folder, 'end', GOOD), 2, None),
    ('pipe whose writer closes it in the middle', lambda folder: pipe(folder, 'middle', GOOD[:-10]), 0, None),
    ('pipe whose writer closes it at once', lambda folder: pipe(folder, 'at once', ''), 0, None),
]


def run(program, path, task, limits):
    """Gives the row of the table from the time on, and what was printed."""
    def limit():
        for kind, value in limits.items():
            resource.setrlimit(kind, (value, value))

    # Without messages, as many of the files hold values that are logged.
    process = subprocess.Popen([program, path, str(task)], stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
                               preexec_fn=limit, env=dict(os.environ, QT_LOGGING_RULES='*=false'))
    printed = process.stderr.read().decode(errors='replace')
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        printed = f'ended with {process.returncode}: {printed[-2000:]}'
    return f'{usage.ru_utime + usage.ru_stime:.2f} s | {usage.ru_maxrss // 1024} MB', printed


def main():
    options = {argument for argument in sys.argv[1:] if argument.startswith('--')}
    program, word = ([argument for argument in sys.argv[1:] if argument not in options] + ['', ''])[:2]
    if not program or options - {'--large', '--sanitized'}:
        sys.exit(__doc__)
    is_large = '--large' in options
    limits = {resource.RLIMIT_STACK: MEGABYTE if is_large else MEGABYTE // 4,
              resource.RLIMIT_AS: 8192 * MEGABYTE if is_large else 1024 * MEGABYTE,
              resource.RLIMIT_CPU: 600 if is_large else 60, resource.RLIMIT_CORE: 0}
    if '--sanitized' in options:  # larger frames, and more address space than there is memory
        limits.update({resource.RLIMIT_STACK: MEGABYTE, resource.RLIMIT_AS: resource.RLIM_INFINITY,
                       resource.RLIMIT_CPU: 300})
    print('| case | file | time | peak | result |\n|---|---|---|---|---|')
    wrong = shown = 0
    with tempfile.TemporaryDirectory() as folder:
        def show(name, path, task, expected):
            nonlocal wrong, shown
            size = f'{os.path.getsize(path) / 1e6:.1f} MB' if os.path.isfile(path) else ''
            cost, printed = run(program, path, task, limits)
            wrong += printed != expected
            shown += 1
            print(f'| {name} | {size} | {cost} | {printed}{"" if printed == expected else ", WRONG"} |', flush=True)

        for name, path_in, items, style in PATHS:
            if word not in name:
                continue
            path = path_in(folder)
            show(name, path, 1, f'items {items}')
            if style is not None:
                show(name, path, 'style', f'style {style}')
                show(name, path, 'check', f'loads {int(items > 0)}')
        for name, large, quick, content, items, profiles in FILES:
            if word not in name:
                continue
            count = large if is_large else quick
            path = os.path.join(folder, 'catalog.xml')
            with open(path, 'w') as file:
                file.write(content(count))
            show(f'{count:,} {name}', path, profiles or count, f'items {items(count)}')
            show(f'{count:,} {name}, checked', path, 'check', f'loads {int(items(count) > 0)}')
    if wrong or not shown:
        sys.exit(f'{wrong} files are not read as they should be' if shown else f'no file has {word!r} in its name')


if __name__ == '__main__':
    main()
