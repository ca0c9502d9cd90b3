#!/usr/bin/env python3
"""Makes the manual pages of orvida-catalog and its completion for bash and zsh from what --help prints.

  manual.py TOOL VERSION FOLDER    TOOL is the program; the files are written below FOLDER
"""
import gzip
import os
import re
import subprocess
import sys


# What an option needs or excludes, which --help prints after its name.
CONDITION = r" (Needs|Excludes): (.*)"


class Help:
    """What --help says of the tool or of one command: a summary, a usage, sections of rows, a footer."""

    def __init__(self, text):
        lines = text.split("\n")
        self.summary = lines[0]
        self.usage = lines[1].removeprefix("Usage: ")
        self.sections = {}
        self.footer = ""
        rows = None
        for line in lines[2:]:
            heading = re.fullmatch(r"(\w+):", line)
            row = re.match(r"  (\S.*?)(?:  +(.*))?$", line)
            more = re.match(r" {20,}(\S.*)$", line)
            if heading:
                rows = self.sections.setdefault(heading[1], [])
            elif more:
                rows[-1] = (rows[-1][0], (rows[-1][1] + " " + more[1]).strip())
            elif row:
                rows.append((row[1], row[2] or ""))
            elif line:
                self.footer += line + "\n"

    def options(self):
        """Rows of options: their names, what they take ("" for a flag), and what they do."""
        for left, right in self.sections.get("Options", []):
            left = re.sub(CONDITION, "", left)
            names, _, value = left.partition(" ")
            yield names.split(","), value, right


def help_of(tool, *command):
    environment = dict(os.environ, LC_ALL="C.UTF-8")
    return Help(subprocess.run([tool, *command, "--help"], check=True, capture_output=True, text=True,
                               env=environment).stdout)


def roff(text):
    text = text.replace("\\", "\\e").replace("-", "\\-")
    return "\\&" + text if text.startswith((".", "'")) else text


def manual_page(name, help_text, version, others):
    lines = [f'.TH {name.upper()} 1 "" "Orvida Catalogs {version}" "User Commands"', ".SH NAME",
             roff(name) + " \\- " + roff(help_text.summary[0].lower() + help_text.summary[1:].rstrip(".")),
             ".SH SYNOPSIS", ".B " + roff(help_text.usage)]
    for title, rows in help_text.sections.items():
        lines.append(".SH " + {"Positionals": "ARGUMENTS", "Subcommands": "COMMANDS"}.get(title, title.upper()))
        for left, right in rows:
            condition = re.search(CONDITION, left)
            if condition:
                right += f" ({condition[1].lower()} {condition[2]})"
            lines += [".TP", ".B " + roff(re.sub(CONDITION, "", left)), roff(right)]
    lines += [".SH EXIT STATUS", roff(help_text.footer.replace("Exit status: ", "").replace("\n", " ").strip()),
              ".SH SEE ALSO", ",\n".join(f".BR {roff(other)} (1)" for other in others)]
    return "\n".join(lines) + "\n"


def choices(value):
    return value.split("|") if "|" in value else []


def is_file(value):
    return value in ("FILE", "OUT", "OLD", "NEW") or value.endswith("FILE...")


BASH = """# Completes orvida-catalog in bash. Made from what --help prints.
_orvida_catalog_reply()
{
    mapfile -t COMPREPLY < <(compgen "$@" -- "${COMP_WORDS[COMP_CWORD]}")
}

_orvida_catalog()
{
    COMPREPLY=()
    if [ "$COMP_CWORD" -eq 1 ]; then
        _orvida_catalog_reply -W "@WORDS@"
        return
    fi
    local command=${COMP_WORDS[1]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    case $command:$previous in
@VALUES@    esac
    case $command:${COMP_WORDS[COMP_CWORD]} in
@OPTIONS@    *) _orvida_catalog_reply -f ;;
    esac
}
complete -o filenames -F _orvida_catalog orvida-catalog
"""


def bash_completion(top, commands):
    words = [name for names, _, _ in top.options() for name in names] + list(commands)
    options, values = "", ""
    for command, help_text in commands.items():
        names = [name for names, _, _ in help_text.options() for name in names]
        options += f'    {command}:-*) _orvida_catalog_reply -W "{" ".join(names)}" ;;\n'
        for names, value, _ in help_text.options():
            if not value:
                continue
            pattern = " | ".join(f"{command}:{name}" for name in names)
            reply = ""
            if choices(value):
                reply = f' _orvida_catalog_reply -W "{" ".join(choices(value))}";'
            elif is_file(value):
                reply = " _orvida_catalog_reply -f;"
            values += f"    {pattern}){reply} return ;;\n"
    return BASH.replace("@WORDS@", " ".join(words)).replace("@VALUES@", values).replace("@OPTIONS@", options)


def zsh_quoted(text):
    return "'" + text.replace("'", "'\\''") + "'"


def zsh_escaped(text):
    return re.sub(r"([\[\]:\\])", r"\\\1", text)


def zsh_option(names, value, meaning):
    """One argument of _arguments for each name; a name excludes the others."""
    action = f":{zsh_escaped(value)}:" if value else ""
    if choices(value):
        action = f":value:({' '.join(choices(value))})"
    elif is_file(value):
        action = ":file:_files"
    return [zsh_quoted(f"({' '.join(names)}){name}[{zsh_escaped(meaning)}]{action}") for name in names]


def zsh_completion(top, commands):
    lines = ["#compdef orvida-catalog", "# Completes orvida-catalog in zsh. Made from what --help prints.",
             "local -a commands", "commands=("]
    lines += ["  " + zsh_quoted(f"{command}:{zsh_escaped(help_text.summary)}")
              for command, help_text in commands.items()]
    lines += [")", "if (( CURRENT == 2 )); then", "  _describe command commands", "  _arguments \\"]
    lines += ["    " + row + " \\" for option in top.options() for row in zsh_option(*option)]
    lines += ["    && return", "  return", "fi", "local command=$words[2]", "shift words", "(( CURRENT-- ))",
              "case $command in"]
    for command, help_text in commands.items():
        lines += [f"{command})", "  _arguments \\"]
        lines += ["    " + row + " \\" for option in help_text.options() for row in zsh_option(*option)]
        lines += ["    '*:file:_files' ;;"]
    return "\n".join(lines + ["esac"]) + "\n"


def write(folder, name, text):
    os.makedirs(folder, exist_ok=True)
    content = text.encode()
    if name.endswith(".gz"):
        content = gzip.compress(content, mtime=0)  # the same bytes whenever it is made
    with open(os.path.join(folder, name), "wb") as file:
        file.write(content)


def main():
    tool, version, folder = sys.argv[1:]
    top = help_of(tool)
    commands = {name: help_of(tool, name) for name, _ in top.sections["Subcommands"]}
    pages = {"orvida-catalog": top}
    pages.update({"orvida-catalog-" + name: help_text for name, help_text in commands.items()})
    for name, help_text in pages.items():
        others = [other for other in pages if other != name] if name == "orvida-catalog" else ["orvida-catalog"]
        write(os.path.join(folder, "man"), name + ".1.gz", manual_page(name, help_text, version, others))
    write(folder, "orvida-catalog.bash", bash_completion(top, commands))
    write(folder, "_orvida-catalog", zsh_completion(top, commands))


main()
