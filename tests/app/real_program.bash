# Sourced by the tests that start the real program under Xvfb, with the build's bin folder
# in $bin: checks the tools and copies the program into a folder of its own, $work, so
# that the settings file the program makes lands there.
for tool in xvfb-run xdotool; do
  command -v "$tool" >/dev/null || { echo "FAIL: $tool is missing (scripts/install-deps.sh installs it)"; exit 1; }
done
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$bin/tavlero" "$work/" || { echo "FAIL: no program at $bin/tavlero"; exit 1; }
