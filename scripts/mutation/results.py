"""What each change came to: one line of JSON each, so that a run that was interrupted goes on where it was."""

import json

from .change import key_of
from .draw import folder_of

NOTICED = "noticed"
RAN_OUT = "ran out of time"
UNNOTICED = "unnoticed"
UNBUILT = "does not compile"
# The slow tests have not been asked yet.
PENDING = "unnoticed by quick tests"
COLUMNS = ("drawn", "noticed", "ran out of time", "judged equal", "unnoticed", "tested since")


class Results:
    def __init__(self, path):
        self._path = path
        self._records = {}
        if path.exists():
            for line in path.read_text().splitlines():
                self._take(json.loads(line))

    def _take(self, record):
        self._records[key_of(record)] = record

    def add(self, change, outcome):
        record = change.record() | {"result": outcome.result, "by": outcome.by, "seconds": round(outcome.seconds, 1)}
        if self.is_test_new(change, outcome):
            record["since"] = True
        with self._path.open("a") as file:
            file.write(json.dumps(record, ensure_ascii=False) + "\n")
        self._take(record)

    def is_test_new(self, change, outcome):
        """Whether it is noticed by a test that was not there, or took too long, when it was made before."""
        before = self.result(change)
        asked_before = before in (UNNOTICED, RAN_OUT) or (before == PENDING and outcome.quick)
        return outcome.result == NOTICED and asked_before

    def result(self, change):
        """None for one that was not made yet."""
        record = self._records.get(change.key)
        return record and record["result"]

    def standing(self, change, judged):
        """The column of the table that it is counted in."""
        result = self.result(change)
        if change.key in judged and result in (None, UNNOTICED):
            return "judged equal"
        if result == NOTICED and self._records[change.key].get("since"):
            return "tested since"
        return result

    def table(self, changes, judged):
        """Totals of the changes that compiled, one line a folder."""
        counts = {}
        for change in changes:
            standing = self.standing(change, judged)
            if standing in COLUMNS:
                row = counts.setdefault(folder_of(change.file), dict.fromkeys(COLUMNS, 0))
                row["drawn"] += 1
                row[standing] += 1
        rows = [["area", *COLUMNS]] + [[folder, *map(str, row.values())] for folder, row in counts.items()]
        rows.append(["all", *(str(sum(row[column] for row in counts.values())) for column in COLUMNS)])
        widths = [max(len(row[place]) for row in rows) for place in range(len(rows[0]))]
        return "\n".join(
            "  ".join(cell.ljust(width) if place == 0 else cell.rjust(width)
                      for place, (cell, width) in enumerate(zip(row, widths)))
            for row in rows)
