#!/usr/bin/env python3
"""Prints a page of docs/ as Doxygen needs it: headings get the anchors that links to them expect, and these
links name the page, because anchors are common to all pages there.

  filter.py PAGE
"""
import os
import re
import sys


def slug(heading):
    """The anchor that code hosting services give a heading."""
    return re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")


def page_of(path):
    return os.path.splitext(os.path.basename(path))[0]


def main():
    path = sys.argv[1]
    page = page_of(path)
    is_code = False
    for line in open(path, encoding="utf-8"):
        line = line.rstrip("\n")
        if line.lstrip().startswith("```"):
            is_code = not is_code
        elif not is_code:
            heading = re.fullmatch(r"(##+) (.*)", line)
            if heading:
                line = f"{heading[1]} {heading[2]} {{#{page}-{slug(heading[2])}}}"
            line = re.sub(r"\]\(#([^)]+)\)", rf"](#{page}-\1)", line)
            line = re.sub(r"\]\(([^):]+\.md)#([^)]+)\)", lambda link: f"](#{page_of(link[1])}-{link[2]})", line)
            # Placeholders such as @CLK are no commands of Doxygen's.
            parts = line.split("`")
            parts[::2] = [re.sub(r"(?<!\w)@(?=\w)", r"\\@", text) for text in parts[::2]]
            line = "`".join(parts)
        print(line)


main()
