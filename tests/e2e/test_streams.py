"""The program whose standard streams are closed, full or left by their reader."""

import contextlib
import os
import subprocess

import pytest

from desktop import Program, wait_until


@pytest.fixture
def start_by_shell(binary, desktop, settings):
    """Starts the program with its streams as a shell's redirections say, and waits for its panel."""
    running = []

    def run(redirections, **options):
        settings("hasCompletedOnboarding", "true")
        program = Program(desktop, ["sh", "-c", f'exec "$0" {redirections}', binary], **options)
        running.append(program)
        wait_until(program.is_shown, "the panel", program.describe)
        return program

    yield run
    for program in running:
        program.stop()


def test_it_runs_without_standard_streams(start_by_shell):
    program = start_by_shell("<&- >&- 2>&-")
    program.expand()


def test_it_outlives_the_reader_of_its_words(start_by_shell, environment):
    program = start_by_shell("2>&1", stdout=subprocess.PIPE)
    program.process.stdout.close()
    program.expand()
    # Each change of a setting is worth a line.
    subprocess.run([program.process.args[3], "defaults", "write", "requireRealNotch", "-bool",
                    "true"], env=environment, check=True, timeout=20)
    wait_until(lambda: not program.is_shown(), "end of the panel", program.describe)


def test_it_does_not_wait_for_the_reader_of_its_words(start_by_shell):
    reader, writer = os.pipe()
    os.set_blocking(writer, False)
    with contextlib.suppress(BlockingIOError):
        while True:
            os.write(writer, b"unread\n")
    os.set_blocking(writer, True)
    program = start_by_shell("2>&1", stdout=writer)
    program.expand()
    os.close(reader)
    os.close(writer)
