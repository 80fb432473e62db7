#!/usr/bin/env python3
"""Runs quellpad-site through careless and hostile controllers, one scenario at a time, with
a well-behaved controller beside them on the pseudo-terminal querying camera 1 every
200 ms at 2400 baud, and prints per scenario: resident memory at start, peak and end, CPU,
the well-behaved controller's answer latency (p50, p99) and missed answers, and the time
the program takes to end on SIGTERM.

Usage: site_flood.py PROGRAM [SECONDS [SCENARIO]]  (SCENARIO: part of a scenario's name)"""

import os
import random
import select
import signal
import socket
import subprocess
import sys
import termios
import threading
import time
import tty

QUERY = bytes.fromhex("ff010051000052")
MISSED_AFTER = 1.0


def resident_kb(pid):
    try:
        with open(f"/proc/{pid}/status") as status:
            for line in status:
                if line.startswith("VmRSS:"):
                    return int(line.split()[1])
    except OSError:
        pass
    return 0


def cpu_seconds(pid):
    try:
        with open(f"/proc/{pid}/stat") as stat:
            fields = stat.read().rsplit(")", 1)[1].split()
        return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")
    except OSError:
        return 0.0


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


class Stop:
    def __init__(self):
        self.flag = threading.Event()


def flooder(port, stop, payload, read=False):
    """Sends payload over and over until stopped; reads what comes back only if asked."""
    try:
        client = socket.create_connection(("127.0.0.1", port))
    except OSError:
        return
    client.settimeout(0.2)
    while not stop.flag.is_set():
        try:
            client.sendall(payload)
            if read:
                client.recv(65536)
        except socket.timeout:
            continue
        except OSError:
            break
    client.close()


def idle_clients(port, stop, count):
    held = []
    for _ in range(count):
        try:
            held.append(socket.create_connection(("127.0.0.1", port)))
        except OSError:
            break
    stop.flag.wait()
    for client in held:
        client.close()


def slow_reader(fd, bytes_per_second, stop):
    """Reads the program's output at a trickle, or not at all."""
    while not stop.flag.is_set():
        if bytes_per_second:
            try:
                os.read(fd, bytes_per_second // 10)
            except BlockingIOError:
                pass
        time.sleep(0.1)
    # The end: the reader catches up, so that the closing lines can leave.
    os.set_blocking(fd, True)
    while os.read(fd, 65536):
        pass


def percentile(values, share):
    ordered = sorted(values)
    if not ordered:
        return float("nan")
    return ordered[min(len(ordered) - 1, int(share * len(ordered)))]


def run(program, name, seconds, start):
    port = free_port()
    out_read, out_write = os.pipe()
    site = subprocess.Popen([program, "--pty", "--json", "--listen", f"127.0.0.1:{port}"],
                            stdout=out_write, stderr=subprocess.DEVNULL)
    os.close(out_write)
    path = b""
    while not path.endswith(b"\n"):
        path += os.read(out_read, 1)
    os.set_blocking(out_read, False)
    stop = Stop()
    reader = threading.Thread(target=slow_reader,
                              args=(out_read, start.get("reader", None) or 0, stop))
    if "reader" in start:
        reader.start()
    else:
        def keep_up():
            while not stop.flag.is_set():
                select.select([out_read], [], [], 0.1)
                try:
                    while os.read(out_read, 65536):
                        pass
                except BlockingIOError:
                    pass
            os.set_blocking(out_read, True)
            while os.read(out_read, 65536):
                pass
        reader = threading.Thread(target=keep_up)
        reader.start()
    deadline = time.time() + 5
    while time.time() < deadline:
        try:
            socket.create_connection(("127.0.0.1", port)).close()
            break
        except OSError:
            time.sleep(0.05)
    controller = os.open(path.strip(), os.O_RDWR | os.O_NOCTTY)
    tty.setraw(controller)
    attributes = termios.tcgetattr(controller)
    attributes[4] = attributes[5] = termios.B2400
    termios.tcsetattr(controller, termios.TCSANOW, attributes)
    rss_start = resident_kb(site.pid)
    cpu_start = cpu_seconds(site.pid)
    threads = [threading.Thread(target=target, args=(port, stop, *args))
               for target, args in start.get("threads", [])]
    for thread in threads:
        thread.start()
    latencies = []
    missed = 0
    peak = rss_start
    began = time.time()
    while time.time() - began < seconds:
        sent = time.time()
        os.write(controller, QUERY)
        answer = b""
        while len(answer) < 7 and time.time() - sent < MISSED_AFTER:
            ready, _, _ = select.select([controller], [], [], 0.05)
            if ready:
                answer += os.read(controller, 64)
            peak = max(peak, resident_kb(site.pid))
        if len(answer) >= 7:
            latencies.append((time.time() - sent) * 1000)
        else:
            missed += 1
        time.sleep(max(0.0, 0.2 - (time.time() - sent)))
    rss_end = resident_kb(site.pid)
    cpu = cpu_seconds(site.pid) - cpu_start
    ended = time.time()
    site.send_signal(signal.SIGTERM)
    try:
        site.wait(timeout=30)
        exit_ms = (time.time() - ended) * 1000
    except subprocess.TimeoutExpired:
        site.kill()
        site.wait()
        exit_ms = float("inf")
    stop.flag.set()
    for thread in threads:
        thread.join()
    reader.join()
    os.close(controller)
    os.close(out_read)
    print(f"{name:34} {rss_start / 1024:6.1f} {peak / 1024:6.1f} {rss_end / 1024:6.1f} MB "
          f"{cpu:6.2f} s {percentile(latencies, 0.5):6.0f} {percentile(latencies, 0.99):6.0f} ms "
          f"{missed:3d}/{missed + len(latencies):3d} {exit_ms:7.0f} ms", flush=True)


def main():
    program = sys.argv[1]
    seconds = float(sys.argv[2]) if len(sys.argv) > 2 else 10.0
    rng = random.Random(29)
    noise = bytes(rng.randrange(256) for _ in range(65536))
    texts = b"1Ma" * 20000
    queries = QUERY * 1000
    scenarios = [
        ("alone", {}),
        ("1 client flooding noise", {"threads": [(flooder, (noise,))]}),
        ("50 clients flooding noise", {"threads": [(flooder, (noise,))] * 50}),
        ("1 client flooding \"1Ma\"", {"threads": [(flooder, (texts,))]}),
        ("8 clients querying, never reading", {"threads": [(flooder, (queries,))] * 8}),
        ("31 idle clients, 1 querying", {"threads": [(idle_clients, (31,)),
                                                      (flooder, (queries, True))]}),
        ("output reader stalled, 1 flooding", {"reader": 0, "threads": [(flooder, (texts,))]}),
        ("output read at 1 kB/s, 1 flooding", {"reader": 1024,
                                               "threads": [(flooder, (texts,))]}),
    ]
    print(f"{seconds:.0f} s each; the well-behaved controller queries camera 1 every 200 ms on "
          "the pseudo-terminal at 2400 baud")
    print(f"{'scenario':34} {'RSS start':>6} {'peak':>6} {'end':>6}    {'CPU':>6}   "
          f"{'p50':>6} {'p99':>6}    missed  SIGTERM")
    only = sys.argv[3] if len(sys.argv) > 3 else ""
    for name, start in scenarios:
        if only in name:
            run(program, name, seconds, start)


if __name__ == "__main__":
    main()
