"""Tries C++ code: it is an example's, or compiles."""
import re
import subprocess

COMPILED = re.compile(r'with ("\S+"(?: "\S+")*) in (.+)')


class Snippets:
    def __init__(self, root):
        self.root = root
        self.counts = {"taken from a file": 0, "compiled": 0}
        self.errors = []

    def try_page(self, page):
        for block in page.blocks:
            if block.language != "cpp":
                continue
            compiled = COMPILED.fullmatch(block.mark)
            if block.mark_kind == "from":
                self.counts["taken from a file"] += 1
                if block.text not in (self.root / block.mark).read_text(encoding="utf-8"):
                    self.errors.append(f"{block.place}: {block.mark} does not have this code")
            elif compiled:
                self.counts["compiled"] += 1
                self._compile(block, compiled[1], compiled[2])
            else:
                self.errors.append(f"{block.place}: a mark has to say which file this code is from, or how to compile it")

    def _compile(self, block, headers, function):
        includes = "".join(f"#include {header}\n" for header in headers.split())
        source = f"{includes}using namespace std::chrono_literals;\n{function}\n{{\n{block.text}}}\n"
        ended = subprocess.run(["g++", "-std=c++17", "-fsyntax-only", "-I", self.root, "-I", self.root / "include",
                                "-x", "c++", "-"], input=source, capture_output=True, text=True, check=False)
        if ended.returncode != 0:
            self.errors.append(f"{block.place}: this does not compile:\n{ended.stderr}")
