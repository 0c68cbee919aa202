import fnmatch
import pathlib
import shutil


def copy(_conanfile, pattern, source, target):
    """A pattern's "*" stands for folders, too."""
    source = pathlib.Path(source)
    top = pattern.split("/", maxsplit=1)[0]
    found = [source / top] if (source / top).is_file() else (source / top).rglob("*")
    for path in found:
        name = path.relative_to(source)
        if path.is_file() and fnmatch.fnmatch(str(name), pattern):
            copied = pathlib.Path(target) / name
            copied.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(path, copied)


def rmdir(_conanfile, _folder):
    pass
