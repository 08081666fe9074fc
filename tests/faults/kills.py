"""SIGKILL at random moments, and at random calls that change a file."""
from trial import a_call


def kill_at_moments(installation, trials, count, random, report):
    """Goes on until so many were killed; one that got through tells that its time was measured too long."""
    killed = 0
    for number in range(3 * count):
        trial = trials[number % len(trials)]
        trial.begin()
        delay = random.uniform(0, trial.seconds)
        outcome = installation.run_killed(trial.operation.words, delay)
        killed += outcome.was_killed()
        if not outcome.was_killed():
            trial.seconds = min(trial.seconds, outcome.seconds)
        reached, faults = trial.verdict(outcome)
        report.add("killed at a moment", trial.operation.name, outcome, reached, faults,
                   f"after {delay * 1000:.1f} ms")
        if killed == count:
            break


def kill_at_calls(installation, trials, count, random, report):
    calls = []
    for trial in trials:
        trial.begin()
        calls.append(installation.count_calls(trial.operation.words, "any"))
    for number in range(count):
        trial = trials[number % len(trials)]
        trial.begin()
        call = a_call(random, calls[number % len(trials)])
        outcome = installation.run_with_fault(trial.operation.words, "any", call, "kill")
        reached, faults = trial.verdict(outcome)
        report.add("killed at a file call", trial.operation.name, outcome, reached, faults,
                   f"at call {call} of {calls[number % len(trials)]}")
