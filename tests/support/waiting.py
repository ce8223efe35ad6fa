"""Waiting for what another process brings about."""

import time

# Long enough for a machine that does many things at once; a wait ends as soon as it can.
PATIENCE = 30


def wait_for(condition, what, patience=PATIENCE):
    """The first true answer of `condition`."""
    end = time.monotonic() + patience
    while True:
        answer = condition()
        if answer:
            return answer
        if time.monotonic() > end:
            raise AssertionError("waited in vain for " + what)
        time.sleep(0.02)
