"""Lines of the table that ./benchmark prints, and what most of them measure."""

import statistics
import time

from measured_process import Places, Running

STARTS = 9
WATCH_SECONDS = 20


def row(what, value, unit, limit=None, yardstick=None, limit_text=None, is_ratio=False):
    """One line of the table. `limit` is of the value, or of its ratio to the yardstick, which is a name and a value."""
    ratio = value / yardstick[1] if yardstick and yardstick[1] else None
    judged = ratio if is_ratio else value
    return {
        "what": what,
        "measured": f"{value:.3g} {unit}",
        "budget": limit_text or ("" if limit is None else f"at most {limit:g} {unit}"),
        "verdict": "" if limit is None else "kept" if judged <= limit else "**over**",
        "yardstick": f"{yardstick[0]} {yardstick[1]:.3g} {unit}" if yardstick else "",
        "ratio": f"{ratio:.2g} ×" if ratio else "",
    }


def starts(command, has_terminal=False, waits_for_socket=False, environment=None):
    """Milliseconds of the processor until the program has started and rests; the median."""
    taken = []
    for _ in range(STARTS):
        with Places() as places:
            places.environment.update(environment or {})
            with Running(places, command, has_terminal, places.socket_path if waits_for_socket else None) as running:
                time.sleep(1)
                taken.append(running.processor_seconds() * 1e3)
    return statistics.median(taken)


def resting(running, settle_seconds=5):
    """Memory and wake-ups a second once everything that a start or a change brings has passed."""
    time.sleep(settle_seconds)
    wakeups = running.wakeups_a_second(WATCH_SECONDS)
    return running.memory(), wakeups


def memory_rows(what, memory, limits, name, yardstick):
    """Both kinds of memory beside those of the yardstick, measured the same way."""
    for kind, value, limit, other in zip(("private memory", "PSS"), memory, limits, yardstick):
        yield row(f"{what}: {kind}", value, "MB", limit, (name, other))
