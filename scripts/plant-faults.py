#!/usr/bin/env python3
"""Plants faults in the product, one at a time, and tells which of them the tests catch.

    scripts/plant-faults.py [--build FOLDER] [FAULT...]

Each fault is one substitution of a text that must stand in its file exactly once. The tests
concerned are built and run; the file is put back, whatever happens. Exit status 1: a fault was not
caught. Exit status 2: the table below does not fit the sources any more, or the tests fail without
a fault. The build tree is build/check unless named.
"""

import argparse
import collections
import contextlib
import os
import pathlib
import re
import signal
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent

# file: its name alone, which is unique among the sources; so it may move between folders.
# tests: names as ctest has them, "tst_" left out; program: what has them built.
Fault = collections.namedtuple("Fault", "name file old new program tests")

FAULTS = [
    # What comes in and goes out.
    Fault("wrong byte order of one status field", "ldbstatus.cpp",
          "status.secondaryAuxiliary = wordAt(field::kSecondaryAuxiliary);",
          "status.secondaryAuxiliary = static_cast<quint16>("
          "(byteAt(field::kSecondaryAuxiliary) << 8U) |"
          " byteAt(field::kSecondaryAuxiliary + 2));",
          "tests_serial", "ldbstatus framecodec"),
    Fault("wrong variant of the CRC", "framecodec.cpp",
          "quint8 crc = 0xFF;", "quint8 crc = 0x00;",
          "tests_serial", "framecodec"),
    Fault("status answers of any length taken", "ldbstatus.cpp",
          "if (body.size() != kStatusAnswerLength) {", "if (body.size() < kStatusAnswerLength) {",
          "tests_serial", "ldbstatus"),
    # The conversation.
    Fault("off by one in the misses", "ldbroster.cpp",
          "if (misses > m_forgivenMisses) {", "if (misses >= m_forgivenMisses) {",
          "tests_serial", "polls"),
    Fault("a lost repetition of a command", "inquiry.cpp",
          "constexpr int kCommandTransmissions = 3;", "constexpr int kCommandTransmissions = 2;",
          "tests_serial", "commands"),
    Fault("a scan that stops one address early", "ldbsearch.cpp",
          "if (m_progress.scanned < busaddress::kLast) {",
          "if (m_progress.scanned < busaddress::kLast - 1) {",
          "tests_serial", "scan"),
    # Settings.
    Fault("settings written in another order", "settingswriter.cpp",
          "    LdbParameter::Name, LdbParameter::Flags, LdbParameter::OpenDetectionDelay,",
          "    LdbParameter::Flags, LdbParameter::Name, LdbParameter::OpenDetectionDelay,",
          "tests_app tests_importexport", "ldbsettingssaving import"),
    Fault("settings not stored", "settingswriter.cpp",
          "LdbAction::StoreSettings", "LdbAction::FirmwareId",
          "tests_app tests_importexport", "ldbsettingssaving import"),
    Fault("an export that drops a column", "settingscsv.cpp",
          "flagText(record.startInServiceMode), ", "",
          "tests_importexport", "devicesettingsfile importexport"),
    Fault("an import that takes an id twice", "devicesettingsfile.cpp",
          "    rejectRepeatedIds(result);\n", "",
          "tests_importexport", "devicesettingsfile import"),
    # What is shown and logged.
    Fault("a curve of the other port", "mainwindowplot.cpp",
          '{"VSec", "orange", QwtPlot::yLeft, PlotSample::SecondaryVoltage}',
          '{"VSec", "orange", QwtPlot::yLeft, PlotSample::PrimaryVoltage}',
          "tests_tracking", "plotmainwindow"),
    Fault("a last log line that stays in the program", "filelogger.cpp",
          "QIODevice::ReadWrite | QIODevice::Unbuffered", "QIODevice::ReadWrite",
          "tests_views", "filelogger"),
    Fault("a colour rule inverted", "cellcolours.cpp",
          "? value <= threshold", "? value >= threshold",
          "tests_views", "cellcolourrules"),
    Fault("a lamp that forgets an LDB", "lampcondition.cpp",
          "    m_shown.raise(levels);\n}\n\nvoid BusCondition::endRound",
          "    m_shown = levels;\n}\n\nvoid BusCondition::endRound",
          "tests_views", "lamplevels statusindicators"),
    Fault("header widths lost", "overviewlayout.cpp",
          "userSettings().setValue(constants::kOverviewTableStateKey, m_header->saveState());", "",
          "tests_views", "deviceoverviewtable"),
    # The fault finding.
    Fault("a counting threshold that is off", "fimcounter.h",
          "fimStartup{11, 11}", "fimStartup{11, 12}",
          "tests_tracking", "fimcounter trackingrun fimtracking"),
    Fault("the sides' results swapped", "fimcounter.cpp",
          "loopResult(m_sides.primary.sideResult, m_sides.secondary.sideResult)",
          "loopResult(m_sides.secondary.sideResult, m_sides.primary.sideResult)",
          "tests_tracking", "fimcounter trackingrun fimtracking"),
    Fault("no mute after the factory reset", "trackingrun.cpp",
          "    emit commandDue(TrackingCommand::MuteAudio);\n", "",
          "tests_tracking", "trackingrun fimtracking fimtrackingend"),
]


def fail(message):
    print(message, file=sys.stderr)
    sys.exit(2)


def file_of(fault):
    listed = subprocess.run(["git", "ls-files", f"*/{fault.file}"], cwd=ROOT, check=True,
                            capture_output=True, text=True).stdout.split()
    found = [name for name in listed if not name.startswith(("tests/", "simulator/", "fuzz/"))]
    if len(found) != 1:
        fail(f"{fault.name}: {fault.file} stands in {len(found)} places")
    return ROOT / found[0]


def faulty_text(fault):
    text = file_of(fault).read_text()
    if text.count(fault.old) != 1:
        fail(f"{fault.name}: the text stands in {fault.file} {text.count(fault.old)} times:\n"
             f"{fault.old}")
    return text.replace(fault.old, fault.new)


@contextlib.contextmanager
def planted(fault):
    path = file_of(fault)
    good, bad = path.read_text(), faulty_text(fault)
    try:
        path.write_text(bad)
        yield
    finally:
        path.write_text(good)


def build(tree, programs):
    return subprocess.run(["cmake", "--build", tree, "--target", *programs], cwd=ROOT,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)


def failing_tests(tree, tests):
    """The tests among these that fail; none means that all pass."""
    pattern = "^tst_(" + "|".join(tests) + ")$"
    run = subprocess.run(["ctest", "--test-dir", tree, "--tests-regex", pattern, "--no-tests=error",
                          "--parallel", str(os.cpu_count()), "--timeout", "60"],
                         stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    failing = [test for test in tests
               if re.search(rf"Test +#\d+: tst_{test} (?!.*Passed)", run.stdout)]
    if (run.returncode != 0) != bool(failing):
        fail(run.stdout)
    return failing


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", default=str(ROOT / "build" / "check"))
    parser.add_argument("faults", nargs="*", metavar="FAULT", help="a part of its name")
    options = parser.parse_args()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(2))

    faults = [fault for fault in FAULTS
              if not options.faults or any(part in fault.name for part in options.faults)]
    for fault in faults:
        faulty_text(fault)
    programs = sorted({program for fault in faults for program in fault.program.split()})
    tests = sorted({test for fault in faults for test in fault.tests.split()})
    if build(options.build, programs).returncode != 0:
        fail("The tests do not compile.")
    # What fails anyway catches nothing.
    broken = failing_tests(options.build, tests)
    if broken:
        print(f"Fail without a fault, and do not count: {', '.join(broken)}", flush=True)

    caught = 0
    for fault in faults:
        begin = time.monotonic()
        with planted(fault):
            built = build(options.build, fault.program.split())
            if built.returncode != 0:
                print(built.stdout)
                fail(f"{fault.name}: does not compile")
            failing = [test for test in failing_tests(options.build, fault.tests.split())
                       if test not in broken]
        caught += bool(failing)
        print(f"{'caught    ' if failing else 'NOT CAUGHT'}  {fault.name}: "
              f"{', '.join(failing) if failing else fault.tests}"
              f"  ({time.monotonic() - begin:.0f} s)", flush=True)
    build(options.build, programs)
    print(f"{caught} of {len(faults)} faults caught")
    sys.exit(2 if broken else 0 if caught == len(faults) else 1)


if __name__ == "__main__":
    main()
