"""Tries command lines: really where that can be, otherwise whether programs, options and presets exist."""
import json
import os
import re
import select
import shlex
import shutil
import subprocess
import tempfile

OURS = ("ubxctl", "ubxsim", "ubxsandbox", "ubxdemo", "ubxminimal")
IN_CHECKOUT = ("scripts/", ".ci/", "cmake ")
# An hour of the receiver passes in six seconds.
RECEIVER = ["ubxsim", "--model", "zed-f9t", "--time-scale", "600"]
# Each command is shown before it runs. What wants a terminal and a key to end gets both.
SESSION = r"""
try() {
    printf '$ %s\n' "$1"
    case $1 in
    "ubxctl monitor") (sleep 3 && printf q) | script --quiet --return --command "$1" /dev/null ;;
    *) eval "$1" || exit ;;
    esac
}
"""


def command_lines(text):
    """One command each: comments gone, continued lines joined."""
    for line in text.replace("\\\n", " ").splitlines():
        command = re.sub(r"\s+# .*", "", line).strip()
        if command and not command.startswith("#"):
            yield command


class Commands:
    def __init__(self, root, programs):
        self.root = root
        self.programs = programs
        self.environment = {**os.environ, "PATH": f"{programs}:{os.environ['PATH']}"}
        self.steps = (root / ".ci/run").read_text(encoding="utf-8").splitlines()
        presets = json.loads((root / "CMakePresets.json").read_text(encoding="utf-8"))
        self.presets = {preset["name"] for preset in presets["configurePresets"] if not preset.get("hidden")}
        self.counts = {"run": 0, "started and ended": 0, "run by .ci/run": 0, "form only": 0}
        self.errors = []
        self.general_help = self._output_of(["ubxctl", "--help"])

    # Blocks

    def try_page(self, page):
        """The blocks without a mark that call the installed programs are one session, in the order of the page."""
        with tempfile.TemporaryDirectory(prefix="ubx-docs-") as scratch:
            session = []
            for block in page.blocks:
                if block.language not in ("sh", "console"):
                    continue
                commands = list(command_lines(block.text))
                if not commands:
                    self.errors.append(f"{block.place}: there is no command in this block")
                elif block.mark:
                    self._try_marked(block, commands)
                elif commands[0].startswith("ubxsim "):
                    self._run(session, scratch)
                    session = []
                    for command in commands:
                        self.try_simulator(block.place, command, scratch)
                elif commands[0].startswith(IN_CHECKOUT):
                    self._run_here(block.place, commands)
                else:
                    session += [(block.place, command) for command in commands]
            self._run(session, scratch)
            for span in page.spans:
                self._try_span(span, scratch)

    def _try_marked(self, block, commands):
        with_receiver_at = re.fullmatch(r"with a receiver at (/dev/\w+)", block.mark)
        if block.mark == "each is a step of .ci/run":
            for command in commands:
                self.counts["run by .ci/run"] += 1
                if f"step {command}" not in self.steps:
                    self.errors.append(f"{block.place}: .ci/run has no step {command}")
        elif with_receiver_at:
            link = f'ln -s "$(readlink /dev/tty_gps)" {with_receiver_at[1]}; '
            self._run_here(block.place, commands, ["scripts/sandbox", *RECEIVER, "--"], link)
        elif re.fullmatch(r"form only, .+", block.mark):
            for command in commands:
                self._try_form(block.place, command)
        else:
            self.errors.append(f"{block.place}: this script does not know the mark: try: {block.mark}")

    def _run(self, session, scratch):
        if session:
            script = "".join(f"try {shlex.quote(command)}\n" for _, command in session)
            sandbox = [str(self.programs / "ubxsandbox"), *RECEIVER, "--"]
            self._run_script(session[0][0], len(session), script, sandbox, scratch)

    def _run_here(self, place, commands, sandbox=(), first=""):
        script = first + "".join(f"try {shlex.quote(command)}\n" for command in commands)
        # As a user types it: the programs are not where the shell looks for them.
        self._run_script(place, len(commands), script, list(sandbox), self.root, os.environ)

    def _run_script(self, place, count, script, sandbox, directory, environment=None):
        self.counts["run"] += count
        print(f"{place}: running {count}", flush=True)
        with subprocess.Popen([*sandbox, "bash", "-euc", SESSION + script], cwd=directory, text=True,
                              env=environment or self.environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, start_new_session=True) as process:
            try:
                said, _ = process.communicate(timeout=900)
            except subprocess.TimeoutExpired:
                os.killpg(process.pid, 15)
                said, _ = process.communicate()
                said += "(stopped after 15 minutes)\n"
        if process.returncode != 0:
            self.errors.append(f"{place}: the last of these commands ended with {process.returncode}:\n{said}")

    def try_simulator(self, place, command, directory):
        """A simulator runs until it is told to end: it has to say its terminal, and still be there then."""
        words = shlex.split(command)
        if any(word.startswith("--help") for word in words):
            self.counts["run"] += 1
            self._output_of(words, place)
            return
        self.counts["started and ended"] += 1
        process = subprocess.Popen([self.programs / "ubxsandbox", *words], cwd=directory, env=self.environment,
                                   stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        ready, _, _ = select.select([process.stdout], [], [], 30)
        said = process.stdout.readline().decode() if ready else ""
        if not said.startswith("/dev/pts/") or process.poll() is not None:
            self.errors.append(f"{place}: {command} does not run: {said}")
        process.terminate()
        process.wait(30)
        process.stdout.close()

    # Form

    def _try_span(self, span, scratch):
        first, _, rest = span.text.partition(" ")
        if first == "ubxsim" and rest and not re.search(r" [A-Z]+$", span.text):
            self.try_simulator(span.place, span.text, scratch)
        elif rest and (first in OURS or first.startswith(IN_CHECKOUT) or shutil.which(first)):
            self._try_form(span.place, span.text)

    def _try_form(self, place, command):
        self.counts["form only"] += 1
        for part in re.split(r"&&|\|", command):
            words = shlex.split(part)
            program = words[0]
            if program in OURS:
                self._try_options(place, words, self._output_of([*words, "--help"], place))
            elif program.startswith(IN_CHECKOUT):
                script = self.root / program
                if not os.access(script, os.X_OK):
                    self.errors.append(f"{place}: {program} is no program")
                else:
                    self._try_options(place, words, script.read_text(encoding="utf-8"))
            elif program == "man":
                self._try_manual_page(place, words[1])
            elif program in ("cmake", "ctest"):
                if "--preset" in words and words[words.index("--preset") + 1] not in self.presets:
                    self.errors.append(f"{place}: there is no such preset: {part}")
            elif not shutil.which(program):
                self.errors.append(f"{place}: there is no program {program}")

    def _try_options(self, place, words, help_text):
        if words[0] == "ubxctl" and len(words) > 1 and words[1][0] != "-" and help_text == self.general_help:
            self.errors.append(f"{place}: ubxctl has no command {words[1]}")
        known = help_text + (self.general_help if words[0] == "ubxctl" else "")
        for word in words[1:]:
            if word.startswith("--") and not re.search(re.escape(word) + r"(?![\w-])", known):
                self.errors.append(f"{place}: {words[0]} has no option {word}")

    def _try_manual_page(self, place, name):
        if not list(self.root.glob(f"*/*/{name}.1")) and not list(self.programs.parent.rglob(f"{name}.1")):
            self.errors.append(f"{place}: there is no manual page {name}.1")

    def _output_of(self, words, place="ubxctl --help"):
        ended = subprocess.run(words, env=self.environment, capture_output=True, text=True, check=False, timeout=60)
        if ended.returncode != 0:
            self.errors.append(f"{place}: {shlex.join(words)} ended with {ended.returncode}: {ended.stderr}")
        return ended.stdout
