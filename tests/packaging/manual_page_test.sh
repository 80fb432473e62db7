#!/usr/bin/env bash
# Renders the manual page as man shows it and checks that groff has nothing to warn of,
# that it has the sections an installer looks for, and that it documents every option
# `quellpad --help` lists.
# Usage: manual_page_test.sh <program> <manual page>
set -euo pipefail
program=$1
page=$2
command -v man >/dev/null || { echo "SKIPPED: man is not installed"; exit 77; }
fail() { echo "FAILED: $*"; exit 1; }

warnings=$(MANWIDTH=80 LC_ALL=C.UTF-8 man --warnings -l "$page" 2>&1 >/dev/null) || true
[ -z "$warnings" ] || fail "man --warnings: $warnings"
text=$(MANWIDTH=200 LC_ALL=C.UTF-8 MAN_KEEP_FORMATTING= man -l "$page" 2>/dev/null | col -b)
section() { # the text of one section, up to the next heading
    awk -v name="$1" '/^[A-Z]/ { on = ($0 == name); next } on' <<<"$text"
}
# The keyboard's page; the served site's page has no settings of its own to describe.
keyboard=false
[ "$(basename "$page")" = quellpad.1 ] && keyboard=true
sections=(NAME SYNOPSIS DESCRIPTION OPTIONS "SERIAL DEVICE PERMISSIONS" "EXIT STATUS" "SEE ALSO")
$keyboard && sections+=(ENVIRONMENT FILES)
for name in "${sections[@]}"; do
    grep -qx "$name" <<<"$text" || fail "no section $name"
done

# Read once: grep -q leaves a long section's writer to a closed pipe, which pipefail reports.
options=$(section OPTIONS)
while read -r option; do
    grep -q -- "$option" <<<"$options" || fail "OPTIONS does not describe $option"
done < <("$program" --help | grep -oE -- '--[a-z0-9-]+' | sort -u)
while read -r variable; do
    section ENVIRONMENT | grep -q -- "$variable" || fail "ENVIRONMENT does not name $variable"
done < <("$program" --help | grep -oE 'QUELLPAD_[A-Z0-9_]+' | sort -u)

check() { # section, then the words it must hold
    local name=$1 body
    body=$(section "$name")
    shift
    for word in "$@"; do
        grep -qF -- "$word" <<<"$body" || fail "$name does not mention \"$word\""
    done
}
if $keyboard; then
    check FILES Settings.dat Bindings.ini "~/.config/Quellpad" log
    check "SERIAL DEVICE PERMISSIONS" dialout "adduser" "next login" "udev"
    check "EXIT STATUS" 0 2
    check "SEE ALSO" "ser2net(8)" "minicom(1)" "picocom(1)" "screen(1)"
else
    check "SERIAL DEVICE PERMISSIONS" dialout "adduser" "next login"
    check "EXIT STATUS" 0 1 2
    check "SEE ALSO" "quellpad(1)" "ser2net(8)"
fi
echo "the manual page renders without warnings and documents every option"
