#!/usr/bin/env bash
# Installs the Debian package with dpkg into a throwaway root, runs the installed program
# from there, then purges the package: no file of it may remain, and dpkg may keep no
# record of it (no package left in the "rc" state). The package's dependencies are checked
# against this system's package lists by apt, which installs nothing.
# Usage: install_purge_test.sh <build dir>
set -euo pipefail
build=$1
for tool in dpkg dpkg-deb dpkg-query apt-get; do
    if ! command -v "$tool" >/dev/null; then
        echo "SKIPPED: $tool is not installed, so the package cannot be installed and purged"
        exit 77
    fi
done
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
fail() { echo "FAILED: $*"; exit 1; }

cpack --config "$build/CPackConfig.cmake" -G DEB -B "$scratch/package" >/dev/null
deb=$(ls "$scratch"/package/quellpad_*_amd64.deb)

# Without the lock, so that an apt run elsewhere on the machine does not fail the test.
apt-get install --simulate --no-install-recommends -o Debug::NoLocking=1 "$deb" \
    >"$scratch/apt" 2>&1 ||
    { cat "$scratch/apt"; fail "apt cannot satisfy the package's dependencies"; }

# An empty root with a database of its own. Its dependencies are this system's libraries,
# which the installed program uses; dpkg would run any maintainer script inside the root,
# where no shell is, so a package that needs one cannot install here.
root=$scratch/root
admin=$root/var/lib/dpkg
mkdir -p "$admin/info" "$admin/updates"
touch "$admin/status" "$admin/available"
in_root=(dpkg --root="$root" --force-depends --force-not-root)
"${in_root[@]}" --install "$deb" >"$scratch/dpkg" 2>&1 ||
    { cat "$scratch/dpkg"; fail "dpkg could not install the package"; }
[ "$(dpkg-query --admindir="$admin" -W -f='${db:Status-Abbrev}' quellpad)" = "ii " ] ||
    fail "the package is not recorded as installed"

mkdir -p "$scratch/home"
version=$(env -i PATH="$root/usr/bin:/usr/bin:/bin" HOME="$scratch/home" \
    timeout 10 "$root/usr/bin/quellpad" --version 2>&1) ||
    fail "the installed quellpad --version ended with status $?: $version"
[ "$version" = "Quellpad $(dpkg-deb -f "$deb" Version)" ] ||
    fail "the installed quellpad --version says \"$version\""

"${in_root[@]}" --purge quellpad >"$scratch/dpkg" 2>&1 ||
    { cat "$scratch/dpkg"; fail "dpkg could not purge the package"; }
left=$(cd "$root" && find . -mindepth 1 -not -path './var' -not -path './var/lib' \
    -not -path './var/lib/dpkg' -not -path './var/lib/dpkg/*')
[ -z "$left" ] || fail "the purge left: $left"
if dpkg-query --admindir="$admin" -W quellpad >/dev/null 2>&1; then
    fail "dpkg still knows the package: $(dpkg-query --admindir="$admin" -l quellpad | tail -1)"
fi
ls "$admin/info" | grep -q '^quellpad\.' && fail "dpkg keeps files of the package: $(ls "$admin/info")"
echo "the package installs, its program runs from /usr/bin, and a purge leaves nothing"
