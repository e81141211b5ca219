#!/usr/bin/env python3
"""Sets a tone of a given level, waits until the meters show it, and takes a screenshot.

    check_level.py [LEVEL_DBFS]

Speaks to the display client by its socket ($WZ_CONSOLE, or the default one) and to the instrument by wz_datacore.
Exit code: 0 the level is right, 1 it is not, or something does not answer.
"""

import json
import os
import socket
import subprocess
import sys
import time


class Console:
    """A display client that may be only starting."""

    def __init__(self, time_limit=30):
        path = os.environ.get("WZ_CONSOLE") or os.path.join(
            os.environ["XDG_RUNTIME_DIR"], "wz_displayclient.console")
        deadline = time.monotonic() + time_limit
        while True:
            connection = socket.socket(socket.AF_UNIX)
            connection.settimeout(time_limit)
            try:
                connection.connect(path)
                break
            except OSError:
                connection.close()
                if time.monotonic() > deadline:
                    raise
                time.sleep(0.1)
        self.stream = connection.makefile("rw", encoding="utf-8", newline="\n")

    def run(self, line):
        """Returns whether it was done, and the lines of the answer."""
        self.stream.write(line + "\n")
        self.stream.flush()
        lines = []
        for answer in self.stream:
            answer = answer.rstrip("\n")
            if answer in ("-- done", "-- failed"):
                return answer == "-- done", lines
            lines.append(answer)
        raise ConnectionError("the display client has ended")

    def do(self, line):
        done, lines = self.run(line)
        if not done:
            raise RuntimeError("\n".join(lines))
        return lines


def datacore(*arguments):
    return subprocess.run(["wz_datacore", *arguments], check=True, capture_output=True, text=True).stdout


def level_of_channel_1():
    reading = datacore("meters", "--json", "--count", "5").splitlines()[-1]
    return json.loads(reading)["instantPeakDb"][0]


def main():
    level = float(sys.argv[1]) if len(sys.argv) > 1 else -20.0
    datacore("wait", "configCoreRouter/toneGenerator/level", "--timeout", "30")
    console = Console()
    # The client, too, has to have found the instrument.
    for _ in range(100):
        if console.run("execute 61")[0]:  # lets the hats of the meters fall
            break
        time.sleep(0.2)
    console.do("execute 1")  # close-layout-windows
    console.do("execute 43")  # open-audio-metering
    datacore("set", "configCoreRouter/signalSource/name", "tone")
    datacore("set", "configCoreRouter/toneGenerator/level", "--", str(level))
    for _ in range(10):
        shown = level_of_channel_1()
        if abs(shown - level) < 0.2:
            break
    print(console.do("execute 0")[-1])
    print(f"wanted {level:g} dBFS, shown {shown:g} dBFS")
    return 0 if abs(shown - level) < 0.2 else 1


if __name__ == "__main__":
    try:
        sys.exit(main())
    except (OSError, RuntimeError, subprocess.CalledProcessError) as problem:
        sys.exit(f"check_level.py: {problem}")
