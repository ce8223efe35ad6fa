"""The programs and libraries in a folder, and what stands in them."""

import os
import re
import struct
import subprocess

EXECUTABLE, SHARED = 2, 3


def output(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def is_program(path):
    """Whether the loader may be given the file: a program or a shared library."""
    with open(path, "rb") as file:
        head = file.read(18)
    if len(head) < 18 or head[:4] != b"\x7fELF":
        return False
    order = "<" if head[5] == 1 else ">"
    return struct.unpack(order + "H", head[16:])[0] in (EXECUTABLE, SHARED)


def programs(folder):
    paths = (os.path.join(where, name) for where, _, names in os.walk(folder) for name in names)
    return [path for path in paths if os.path.isfile(path) and not os.path.islink(path) and is_program(path)]


def dynamic_section(path):
    """What the loader is told, as readelf words it."""
    return output("readelf", "-dW", path)


def entries(section, kind):
    """The texts of the entries of a kind."""
    return re.findall(r"\((?:%s)\).*\[(.*)\]" % kind, section)


def install(build, prefix):
    """Installs a build folder's programs under a mask that takes nothing; gives their paths."""
    subprocess.run(["cmake", "--install", build, "--prefix", prefix], check=True, stdout=subprocess.DEVNULL, umask=0)
    return programs(prefix)
