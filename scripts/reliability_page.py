"""The sections of docs/reliability.md that scripts write after the page of the fault tests."""
import pathlib
import re

PAGE = pathlib.Path(__file__).resolve().parent.parent / "docs" / "reliability.md"


def replace_section(title, body):
    """Puts the section under this heading in the old one's place, or at the end."""
    text = PAGE.read_text(encoding="utf-8")
    section = f"## {title}\n\n{body.strip()}\n"
    old = re.search(rf"^## {re.escape(title)}\n.*?(?=^## |\Z)", text, re.M | re.S)
    if old:
        rest = text[old.end():]
        text = text[:old.start()] + section + ("\n" if rest else "") + rest
    else:
        text = text.rstrip("\n") + "\n\n" + section
    PAGE.write_text(text, encoding="utf-8")
