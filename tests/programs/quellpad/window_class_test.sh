#!/usr/bin/env bash
# Starts the program on the X display it is given (tests/support/with-window-manager) and
# checks that its main window carries the class its desktop entry names in StartupWMClass,
# by which docks and task bars put the window under the entry's icon.
# Usage: window_class_test.sh <program> <desktop entry>
set -euo pipefail
program=$1
desktop=$2
command -v xwininfo >/dev/null || { echo "SKIPPED: xwininfo is missing (x11-utils)"; exit 77; }
scratch=$(mktemp -d)
QUELLPAD_SETTINGS_DIR=$scratch QUELLPAD_COM1=/dev/null QUELLPAD_COM2=/dev/null \
    "$program" >"$scratch/output" 2>&1 &
pid=$!
trap 'kill $pid 2>/dev/null; wait 2>/dev/null; rm -rf "$scratch"' EXIT

wanted=$(sed -n 's/^StartupWMClass=//p' "$desktop")
[ -n "$wanted" ] || { echo "FAILED: $desktop names no StartupWMClass"; exit 1; }
# xwininfo writes a window's class after its instance:
#   0x200006 "Quellpad - Settings (2400, n, 8, 1)": ("quellpad" "Quellpad")  1024x819+128+102
for _ in $(seq 100); do
    classes=$(xwininfo -root -tree | sed -n 's/.*"Quellpad[^"]*": ("[^"]*" "\([^"]*\)").*/\1/p')
    [ -n "$classes" ] && break
    sleep 0.1
done
[ -n "$classes" ] || { cat "$scratch/output"; echo "FAILED: no window titled Quellpad appeared"; exit 1; }
for class in $classes; do
    [ "$class" = "$wanted" ] ||
        { echo "FAILED: the main window's class is \"$class\", the desktop entry names \"$wanted\""; exit 1; }
done
echo "the main window's class is $wanted, as the desktop entry says"
