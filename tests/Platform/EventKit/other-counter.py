#!/usr/bin/env python3
"""Another program that changes the items of a vdir: counts the X-COUNT of each up for some seconds, and prints how far it
came. It shares nothing with Mintaro, neither code nor lock: it writes a temporary file, swaps the two, looks at what came
out, and where that is not what it had read, brings what that has besides into the item and swaps again.
Usage: other-counter.py FOLDER SECONDS"""
import ctypes
import os
import random
import re
import sys
import time

AT_FDCWD = -100
RENAME_EXCHANGE = 2
COUNTER = re.compile(r"(title|location|other) (\d+)")
# How often somebody wrote between the reading and the swap.
late = 0
libc = ctypes.CDLL(None, use_errno=True)


def swap(one, other):
    if libc.renameat2(AT_FDCWD, os.fsencode(one), AT_FDCWD, os.fsencode(other), RENAME_EXCHANGE) != 0:
        raise OSError(ctypes.get_errno(), "renameat2")


def read(path):
    with open(path, encoding="utf-8", newline="") as file:
        text = file.read()
    if not text.startswith("BEGIN:VCALENDAR") or not text.rstrip().endswith("END:VCALENDAR"):
        sys.exit(f"{path} is torn: {text}")
    return text


def counts(text):
    return {name: int(count) for name, count in COUNTER.findall(text)}


def with_counts(text, least):
    return COUNTER.sub(lambda m: f"{m[1]} {max(int(m[2]), least.get(m[1], 0))}", text)


def read_all_that_was_written(path, count):
    """Between two renames of a program that finds that it came too late, the older state stands for a moment."""
    end = time.monotonic() + 5
    while time.monotonic() < end:
        text = read(path)
        if counts(text)["other"] >= count:
            return text
        time.sleep(0.001)
    sys.exit(f"other {count} of {path} is lost")


def count_up(path, count):
    expected = read_all_that_was_written(path, count)
    text = with_counts(expected, {"other": count + 1})
    temporary = os.path.join(os.path.dirname(path), f"tmp{random.getrandbits(32):08x}")
    while True:
        with open(temporary, "w", encoding="utf-8", newline="") as file:
            file.write(text)
        swap(temporary, path)
        out = read(temporary)
        os.unlink(temporary)
        if out == expected:
            return
        global late
        late += 1
        expected = text
        text = with_counts(out, counts(text))
        if text == expected:
            return


def main():
    folder, seconds = sys.argv[1], float(sys.argv[2])
    reached = {name: 0 for name in os.listdir(folder) if name.endswith(".ics")}
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        for name in reached:
            count_up(os.path.join(folder, name), reached[name])
            reached[name] += 1
            time.sleep(random.random() / 50)
    for name, count in reached.items():
        print(name.removesuffix(".ics"), count)
    print(f"other: came too late {late} times", file=sys.stderr)


main()
