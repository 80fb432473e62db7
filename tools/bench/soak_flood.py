#!/usr/bin/env python3
"""Floods both ports of the soak probe with random bytes and marker-free replies at full
pseudo-terminal speed while its retransmission runs, in one mode, and judges the run:
resident memory must stay flat after the warm-up, and the period between repeated frames
must not slip by more than the limit at the 99th percentile.

Usage: soak_flood.py PROBE MODE SECONDS [PERIOD_MS]"""

import os
import random
import select
import subprocess
import sys
import tempfile
import time
import tty

MEMORY_LIMIT_KB = 4096
SLIP_LIMIT_MS = 5.0


def resident_kb(pid):
    with open(f"/proc/{pid}/status") as status:
        for line in status:
            if line.startswith("VmRSS:"):
                return int(line.split()[1])
    return 0


def replies(mode):
    """Endless chunks: random bytes, then replies that hold no marker of a new reply."""
    rng = random.Random(9)
    if mode in ("D", "P"):
        plain = bytes(b for b in range(256) if b not in (0xFF, 0xA2))
        quiet = lambda: bytes(rng.choice(plain) for _ in range(4096))
    else:
        quiet = lambda: b"OK\r\n" * 200 + b"CAMERA 12 ONLINE STATUS 0X1F " * 110 + b"\r\n"
    while True:
        yield os.urandom(4096)
        yield quiet()


def percentile(values, fraction):
    ordered = sorted(values)
    return ordered[min(len(ordered) - 1, int(fraction * len(ordered)))]


def main():
    probe, mode, seconds = sys.argv[1], sys.argv[2], float(sys.argv[3])
    period_ms = float(sys.argv[4]) if len(sys.argv) > 4 else 100.0
    folder = tempfile.mkdtemp(prefix="quellpad-soak-")
    with open(os.path.join(folder, "Settings.dat"), "wb") as settings:
        settings.write(f"19200\r\nn\r\nFalse\r\n1 2\r\n{mode}\r\n1 2\r\n".encode())
    masters, slaves = [], []
    for _ in range(2):
        master, slave = os.openpty()
        tty.setraw(slave)
        os.set_blocking(master, False)
        masters.append(master)
        slaves.append(slave)
    env = dict(os.environ, QT_QPA_PLATFORM="offscreen", QUELLPAD_SETTINGS_DIR=folder,
               QUELLPAD_COM1=os.ttyname(slaves[0]), QUELLPAD_COM2=os.ttyname(slaves[1]))
    program = subprocess.Popen([probe, str(period_ms / 1000)], env=env)

    flood = [replies(mode), replies(mode)]
    pending = [b"", b""]
    sends = [[], []]  # start of each burst of frame bytes, per port
    last_byte = [0.0, 0.0]
    flooded = [0, 0]
    samples = []
    start = time.monotonic()
    warm_up = start + min(20.0, seconds / 4)
    next_sample = start
    while time.monotonic() - start < seconds and program.poll() is None:
        readable, writable, _ = select.select(masters, masters, [], 0.05)
        now = time.monotonic()
        for port, master in enumerate(masters):
            if master in readable:
                try:
                    if os.read(master, 65536):
                        if now - last_byte[port] > period_ms / 4000:
                            sends[port].append(now)
                        last_byte[port] = now
                except BlockingIOError:
                    pass
            if master in writable:
                if not pending[port]:
                    pending[port] = next(flood[port])
                try:
                    written = os.write(master, pending[port])
                    pending[port] = pending[port][written:]
                    flooded[port] += written
                except BlockingIOError:
                    pass
        if now >= next_sample:
            samples.append((now, resident_kb(program.pid)))
            next_sample = now + 2.0
    alive = program.poll() is None
    program.terminate()
    program.wait()

    failures = [] if alive else [f"the program ended early (status {program.returncode})"]
    settled = [kb for at, kb in samples if at >= warm_up]
    growth = max(settled) - settled[0] if settled else 0
    print(f"mode {mode}: {seconds:.0f} s, flooded {flooded[0] / 1e6:.1f} MB on COM 1 and "
          f"{flooded[1] / 1e6:.1f} MB on COM 2 (machine load {os.getloadavg()[0]:.1f} on "
          f"{os.cpu_count()} cores: a busy machine delays the timers too)")
    print(f"  resident memory {samples[0][1] // 1024} MB at start, "
          f"{settled[0] // 1024 if settled else 0} MB after the warm-up, "
          f"{samples[-1][1] // 1024} MB at the end: growth {growth} KB")
    if growth > MEMORY_LIMIT_KB:
        failures.append(f"memory grew by {growth} KB")
    for port in range(2):
        intervals = [(b - a) * 1000 for a, b in zip(sends[port][2:], sends[port][3:])]
        if not intervals:
            failures.append(f"COM {port + 1}: no repeated frames")
            continue
        slips = [abs(i - period_ms) for i in intervals]
        p99 = percentile(slips, 0.99)
        print(f"  COM {port + 1}: {len(intervals)} periods, median {percentile(intervals, 0.5):.2f} "
              f"ms, slip p99 {p99:.2f} ms, worst {max(slips):.2f} ms")
        if p99 > SLIP_LIMIT_MS:
            failures.append(f"COM {port + 1}: the period slipped {p99:.2f} ms at the 99th percentile")
    for failure in failures:
        print("  FAILED: " + failure)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
