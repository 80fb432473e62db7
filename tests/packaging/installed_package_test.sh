#!/usr/bin/env bash
# Packs the build tree as the Debian package, unpacks it into a scratch root as dpkg would
# install it, starts the installed program offscreen with a fresh home and checks that it
# keeps its settings there and that the desktop finds its menu entry and icon.
# Usage: installed_package_test.sh <build dir>
set -euo pipefail
build=$1
if ! command -v dpkg-deb >/dev/null; then
    echo "SKIPPED: dpkg-deb is not installed, so the Debian package cannot be built or unpacked"
    exit 77
fi
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
fail() { echo "FAILED: $*"; exit 1; }

cpack --config "$build/CPackConfig.cmake" -G DEB -B "$scratch/package" >/dev/null
deb=$(ls "$scratch"/package/quellpad_*_amd64.deb)
dpkg -x "$deb" "$scratch/root"
# Nothing to run at installation: the private module needs no ldconfig.
for script in preinst postinst prerm postrm; do
    if dpkg-deb -I "$deb" "$script" >/dev/null 2>&1; then
        fail "the package carries a $script script: $(dpkg-deb -I "$deb" "$script")"
    fi
done
root=$scratch/root

mkdir -p "$scratch/home"
status=0
env -i PATH="$root/usr/bin:/usr/bin:/bin" HOME="$scratch/home" QT_QPA_PLATFORM=offscreen \
    QUELLPAD_COM1=/dev/null QUELLPAD_COM2=/dev/null \
    timeout 3 "$root/usr/bin/quellpad" >"$scratch/output" 2>&1 || status=$?
[ "$status" -eq 124 ] || { cat "$scratch/output"; fail "quellpad ended with status $status before it was stopped"; }

# The served site comes with the keyboard, with its manual page.
"$root/usr/bin/quellpad-site" --version | grep -q '^quellpad-site ' ||
    fail "quellpad-site is not installed or does not answer --version"
[ -s "$root/usr/share/man/man1/quellpad-site.1.gz" ] || fail "no manual page for quellpad-site"

# Both programs carry their German and speak it where the locale asks, English elsewhere.
for program in quellpad quellpad-site; do
    german=$(LC_ALL=de_DE.UTF-8 "$root/usr/bin/$program" --help 2>&1) || true
    english=$(LC_ALL=C.UTF-8 "$root/usr/bin/$program" --help 2>&1) || true
    printf '%s' "$german" | grep -q 'Zeigt diese Hilfe an' ||
        fail "$program --help is not in German under a German locale"
    printf '%s' "$english" | grep -q 'Displays this help and exits' ||
        fail "$program --help is not in English under the C locale"
done

settings=$scratch/home/.config/Quellpad/Settings.dat
[ -s "$settings" ] || fail "no Settings.dat in the user's folder ($settings)"
[ ! -e "$root/usr/bin/Settings.dat" ] || fail "Settings.dat written beside the installed program"
grep -q $'^D\r$' "$settings" || fail "Settings.dat holds no mode: $(cat -A "$settings")"

# Network lines load their module on first use, from the architecture's private folder.
[ -s "$root/usr/lib/x86_64-linux-gnu/quellpad/quellpad_netline_module.so" ] ||
    fail "no network module in /usr/lib/x86_64-linux-gnu/quellpad"
[ -s "$root/usr/lib/x86_64-linux-gnu/wireshark/plugins/quellpad.lua" ] ||
    fail "no dissector in Wireshark's Lua plugin folder"
dpkg-deb -f "$deb" Depends | grep -q libqt6network6 ||
    fail "the package does not depend on the network library its module needs"

id=org.quellpad.quellpad
desktop=$root/usr/share/applications/$id.desktop
metainfo=$root/usr/share/metainfo/$id.metainfo.xml
[ -f "$desktop" ] || fail "no desktop entry $id.desktop in /usr/share/applications"
grep -qx 'Exec=quellpad' "$desktop" || fail "the desktop entry does not start quellpad"
grep -qx 'Icon=quellpad' "$desktop" || fail "the desktop entry names another icon"
# Docks group windows by their class; QGuiApplication gives the class "Quellpad".
grep -qx 'StartupWMClass=Quellpad' "$desktop" ||
    fail "the desktop entry names no window class, or another"
for size in 16 32 48 256; do
    [ -s "$root/usr/share/icons/hicolor/${size}x${size}/apps/quellpad.png" ] ||
        fail "no ${size}x${size} icon in the hicolor theme"
done
[ -s "$root/usr/share/icons/hicolor/scalable/apps/quellpad.svg" ] || fail "no scalable icon"
grep -q "<id>$id</id>" "$metainfo" || fail "the AppStream component is not $id"
grep -q "<launchable type=\"desktop-id\">$id.desktop</launchable>" "$metainfo" ||
    fail "the AppStream metadata does not point at the desktop entry"
# Every picture of the program the README shows is offered to software centres.
for picture in "$(dirname "$0")"/../../docs/*.png; do
    grep -q "<image>https://quellpad.example.org/screenshots/$(basename "$picture")</image>" \
        "$metainfo" || fail "the AppStream metadata lacks the screenshot $(basename "$picture")"
done
# Both validators must have nothing to say: no hint, no pedantic note.
if command -v desktop-file-validate >/dev/null; then
    hints=$(desktop-file-validate "$desktop" 2>&1) || true
    [ -z "$hints" ] || fail "desktop-file-validate: $hints"
fi
if command -v appstreamcli >/dev/null; then
    notes=$(appstreamcli validate --no-net --pedantic --no-color "$metainfo" 2>&1 | grep -E '^[EWIP]:') || true
    [ -z "$notes" ] || fail "appstreamcli: $notes"
fi
echo "installed package starts, keeps its settings in the user's folder and shows in the menu"
