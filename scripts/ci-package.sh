#!/usr/bin/env bash
# CI: builds the Debian package from the build folder, installs it on this machine, checks
# the desktop integration and starts both programs from it, then removes it again.
# Run after the build (bash scripts/install-deps.sh --package first).
set -euo pipefail
cd "$(dirname "$0")/.."
sudo=""
[[ $(id -u) -ne 0 ]] && sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
fail() { echo "FAIL: $*" >&2; exit 1; }

(cd build && cpack -G DEB >/dev/null)
package=$(ls build/tavlero_*.deb)
dpkg-deb -f "$package" Depends | grep -q "libqt6widgets6" || fail "the package's dependencies do not name the Qt libraries"

work=$(mktemp -d)
cleanup() {
  [[ -n ${xvfb:-} ]] && kill "$xvfb" 2>/dev/null
  $sudo apt-get purge -y -qq tavlero >/dev/null 2>&1 || true
  rm -rf "$work"
}
trap cleanup EXIT
$sudo apt-get install -y -qq "./$package" >/dev/null

# Installed where a Debian user looks for them.
for file in /usr/bin/tavlero /usr/bin/tavlero-cli /etc/tavlero/tavlero.cfg /usr/share/man/man1/tavlero.1 \
  /usr/share/man/man1/tavlero-cli.1 /usr/share/icons/hicolor/scalable/apps/tavlero.svg \
  /usr/share/icons/hicolor/48x48/apps/tavlero.png; do
  [[ -e $file ]] || fail "$file is not installed"
done
desktop-file-validate /usr/share/applications/tavlero.desktop || fail "the desktop entry does not validate"
man -w tavlero-cli >/dev/null || fail "man does not find tavlero-cli"

# .tvl files have a type of their own, and the desktop entry opens it.
cp examples/nettbutikk.tvl "$work/plan.tvl"
[[ $(xdg-mime query filetype "$work/plan.tvl") == application/x-tavlero ]] || fail "a .tvl file is $(xdg-mime query filetype "$work/plan.tvl")"
[[ $(xdg-mime query default application/x-tavlero) == tavlero.desktop ]] || fail "tavlero is not the program for .tvl files"

# The headless tool from the package, with the settings of /etc.
[[ $(tavlero-cli --version) == "Tavlero versjon 0.1" ]] || fail "tavlero-cli --version"
tavlero-cli check "$work/plan.tvl" || fail "tavlero-cli check of an example"
tavlero-cli picture "$work/plan.tvl" "$work/plan.svg" && grep -q "bestill(handlekurv)" "$work/plan.svg" || fail "tavlero-cli picture"

# The desktop program, started through its desktop entry as a file manager would: a plan
# comes up in the window "Tavlero"; a path that cannot be opened brings "Gale parametre".
export DISPLAY=:$((90 + RANDOM % 100))
Xvfb "$DISPLAY" -screen 0 1280x1024x24 >/dev/null 2>&1 &
xvfb=$!
# A program started before the server takes connections finds no display.
for _ in $(seq 100); do xdotool getdisplaygeometry >/dev/null 2>&1 && break; sleep 0.1; done
window() {
  for _ in $(seq 150); do
    xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | head -n 1 && return
    sleep 0.1
  done
  return 1
}
ends() {
  for _ in $(seq 100); do pgrep -x tavlero >/dev/null || return 0; sleep 0.1; done
  return 1
}
for case in "plan.tvl:Tavlero:alt+f a" "mangler/plan.tvl:Gale parametre:Return"; do
  IFS=: read -r plan title keys <<<"$case"
  gio launch /usr/share/applications/tavlero.desktop "$work/$plan" &
  id=$(window "$title") || fail "no window titled $title for $plan"
  xdotool windowfocus --sync "$id"
  for key in $keys; do xdotool key "$key" && sleep 0.5; done
  ends || fail "the program did not end after $keys"
done
echo "package, install and desktop integration passed"
