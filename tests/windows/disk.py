"""Sheets on the disk, as the program names and writes them, and the system's dialogs that ask for one."""
from pilot import wait


def write(path, text):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(text.replace("\n", "\r\n").encode("cp1252"))


def read(path):
    return path.read_bytes().decode("cp1252").replace("\r\n", "\n")


def there(path):
    """The path as the program names it."""
    return "Z:" + str(path).replace("/", "\\")


def name_file(p, title, name):
    """Gives a name to the file dialog of that title."""
    wait(lambda: (box := p.box()) and box["title"] == title, f"the dialog {title!r}")
    line = wait(lambda: [c for c in p.box()["children"] if c["class"] == "Edit" and c["focus"]],
                "the line for the name")
    p.key("Ctrl+A")
    p.key("Suppr")
    p.type(name)
    wait(lambda: [c for c in p.box()["children"] if c["id"] == line[0]["id"] and c["text"] == name],
         "the name in its line")
    p.key("Entrée")
    wait(lambda: (p.box() or {}).get("title") != title, "the end of the dialog")
