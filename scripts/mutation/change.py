"""One change of one source file."""

from dataclasses import asdict, dataclass

KINDS = ("comparison", "number", "condition", "call", "return", "text")


@dataclass(frozen=True)
class Change:
    file: str
    kind: str
    line: int
    start: int
    end: int
    replacement: str
    # The lines that it touches, without their indents, before and after it.
    before: str
    after: str
    # Which of several such changes in the file it is, from 0.
    nth: int

    @property
    def key(self):
        """What it is known by: the same after lines were added or taken out above it."""
        return (self.file, self.before, self.after, self.nth)

    def applied(self, source):
        return source[: self.start] + self.replacement + source[self.end :]

    def described(self):
        return f"{self.file}:{self.line}: {self.kind}: {self.before}  ->  {self.after}"

    def record(self):
        kept = asdict(self)
        del kept["start"], kept["end"], kept["replacement"]
        return kept


def key_of(record):
    return (record["file"], record["before"], record["after"], record.get("nth", 0))
