# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

"""What scripts/mutate runs: the tests of a build, each with the faults that it meets."""
import concurrent.futures
import json
import os
import re
import signal
import subprocess
import threading
import time


class Runner:
    """Runs tests, each in a process group of its own; an X server for each thread that needs it."""

    def __init__(self):
        self.local, self.servers = threading.local(), []

    def display(self):
        if not hasattr(self.local, "display"):
            ours, theirs = os.pipe()
            self.servers.append(subprocess.Popen(["Xvfb", "-displayfd", str(theirs), "-screen", "0",
                "1280x1024x24", "-nolisten", "tcp", "-noreset"], pass_fds=[theirs],
                stderr=subprocess.DEVNULL))
            os.close(theirs)
            with os.fdopen(ours) as number:
                self.local.display = ":" + number.readline().strip()
        return self.local.display

    def run(self, test, limit, **more):
        """(exit status, None if it hung; seconds; output)"""
        environment = {**os.environ, **test["environment"], **more}
        if test["windows"]:
            environment["DISPLAY"] = self.display()
        start = time.monotonic()
        process = subprocess.Popen(test["command"], cwd=test["folder"], env=environment, text=True,
            errors="replace", stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL, start_new_session=True)
        try:
            output, status = process.communicate(timeout=limit)[0], process.returncode
        except subprocess.TimeoutExpired:
            output, status = "", None
        try:
            os.killpg(process.pid, signal.SIGKILL)  # it, or what it has left
        except ProcessLookupError:
            pass
        process.wait()
        return status, time.monotonic() - start, output

    def close(self):
        for server in self.servers:
            server.terminate()
            server.wait()


def environment_of(properties):
    environment = dict(pair.split("=", 1) for pair in properties.get("ENVIRONMENT", []))
    for change in properties.get("ENVIRONMENT_MODIFICATION", []):
        name, value = change.split("=set:", 1)
        environment[name] = value
    return environment


def split(test):
    """The single tests of a program that ctest runs as a whole."""
    listing = subprocess.run(test["command"] + ["--gtest_list_tests"], capture_output=True,
        text=True, env={**os.environ, **test["environment"], "QT_QPA_PLATFORM": "offscreen"}).stdout
    program = [word for word in test["command"] if not word.startswith("--gtest_filter")]
    suite = ""
    for line in listing.split("\n"):
        word = line.split("#")[0].rstrip()
        if re.fullmatch(r"\S+\.", word):
            suite = word
        elif suite and re.fullmatch(r"  \S+", word):
            single = suite + word.strip()
            yield {**test, "name": f"{test['name']} {single}",
                "command": program + ["--gtest_filter=" + single]}


def discover(build, names, wanted, unwanted):
    """The tests whose programs the build made: those of `names` or all, by regular expressions
    for `program name`."""
    listed = json.loads(subprocess.run(["ctest", "--show-only=json-v1"], cwd=build, check=True,
        capture_output=True, text=True).stdout)["tests"]
    tests = []
    for entry in listed:
        properties = {p["name"]: p["value"] for p in entry.get("properties", [])}
        command = entry.get("command", [])
        programs = [i for i, word in enumerate(command) if word.startswith(f"{build}/bin/")]
        if not programs or properties.get("DISABLED"):
            continue  # a script, or a test of the build itself
        command = command[programs[0]:]
        if not os.path.exists(command[0]):
            continue  # not built
        if names and os.path.basename(command[0]) not in names:
            continue
        test = {"command": command, "environment": environment_of(properties),
            "folder": properties.get("WORKING_DIRECTORY", str(build)), "windows": programs[0] > 0,
            "name": os.path.basename(command[0]) + " " + entry["name"]}
        tests += split(test) if test["windows"] else [test]
    return [test for test in tests if re.search(wanted, test["name"])
        and not (unwanted and re.search(unwanted, test["name"]))]


def meet(test, runner, place, size):
    """Runs a test without a fault; notes its time and the faults that it meets."""
    place.write_bytes(bytes(size))
    place.chmod(0o666)  # some tests give up their rights
    status, seconds, output = runner.run(test, 180, ZQ_MUTANTS_REACHED=str(place))
    meets = [number for number, byte in enumerate(place.read_bytes()) if byte]
    place.unlink()
    trouble = f"fails ({status})" if status not in (0, 77) else ""
    if status == 77 or "[  SKIPPED ]" in output:
        trouble = "is skipped"
    return {**test, "seconds": seconds, "meets": meets, "trouble": trouble}


def first_run(tests, runner, folder, jobs, size):
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        runs = [pool.submit(meet, test, runner, folder / f"reach{number}", size)
            for number, test in enumerate(tests)]
        return [run.result() for run in runs]


def verdict(mutant, tests, runner):
    """What becomes of the fault of this number, and why."""
    meeting = [test for test in tests if mutant in test["meets"]]
    for test in meeting:
        limit = 10 * test["seconds"] + 5
        if runner.run(test, limit, ZQ_MUTANT=str(mutant))[0] != 0:
            return "noticed", test["name"]
    return ("survived" if meeting else "not reached"), f"{len(meeting)} tests"
