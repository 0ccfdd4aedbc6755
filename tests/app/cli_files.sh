#!/usr/bin/env bash
# tavlero-cli save and check: outputs, exit codes and messages. Args: bin folder, data folder.
set -u
bin=$1
data=$2
cli="$bin/tavlero-cli"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

fail() {
  echo "FAIL: $*"
  failures=$((failures + 1))
}

# expect CODE COMMAND...: runs the command with stdout and stderr kept in $work.
expect() {
  local code=$1
  shift
  "$@" >"$work/out" 2>"$work/err"
  local got=$?
  [ "$got" -eq "$code" ] || fail "$* gave $got, not $code: $(cat "$work/err")"
}

# save: the example comes back compressed, and the settings file is made with defaults.
expect 0 "$cli" save --settings "$work/s.cfg" "$data/../../examples/kalkulator.tvl" "$work/out.tvl"
cmp -s "$work/out.tvl" "$data/files/write/kalkulator_read_back.tvl" || fail "save did not give the expected bytes"
cmp -s "$work/s.cfg" "$data/files/default_settings.cfg" || fail "the settings file was not made with defaults"
[ -s "$work/err" ] && fail "save of a clean file printed: $(cat "$work/err")"

# A damaged file is saved as read, with the reader's message on one line of stderr.
expect 0 "$cli" save --settings "$work/s.cfg" "$data/files/read/small_numbers.tvl" "$work/small.tvl"
[ "$(wc -l <"$work/err")" -eq 1 ] || fail "expected one message line, got: $(cat "$work/err")"
grep -q "Det oppstod problemer under parsing" "$work/err" || fail "parsing message missing"
grep -q "<maximumCellWidth> 50</maximumCellWidth>" "$work/small.tvl" || fail "settings did not replace the width"

# Failures: unreadable input, unwritable output (the old file stays), bad usage.
printf 'old' >"$work/keep.tvl"
mkdir "$work/folder.tvl"
expect 2 "$cli" save --settings "$work/s.cfg" "$work/missing/x.tvl" "$work/keep.tvl"
grep -q "En feil oppstod under åpning av filen" "$work/err" || fail "no message for an unreadable input"
expect 2 "$cli" save --settings "$work/s.cfg" "$data/files/read/links_only.tvl" "$work/folder.tvl"
grep -q "Kunne ikke lagre filen '$work/folder.tvl'" "$work/err" || fail "no message for an unwritable output"
[ "$(cat "$work/keep.tvl")" = old ] || fail "the old file changed"
[ "$(find "$work" -name '.*tmp*' | wc -l)" -eq 0 ] || fail "a temporary file was left behind"
expect 2 "$cli" save only-one.tvl
expect 2 "$cli" frobnicate
expect 2 "$cli" save --settings
expect 2 "$cli"
expect 0 "$cli" --help
grep -q "check IN.tvl" "$work/out" || fail "usage lacks check"

# check: a clean file gives nothing and 0; a damaged one a line per problem and 1.
expect 0 "$cli" check --settings "$work/s.cfg" "$data/../../examples/kalkulator.tvl"
[ -s "$work/out" ] && fail "check of a clean file printed: $(cat "$work/out")"
expect 1 "$cli" check --settings "$work/s.cfg" "$data/files/read/glued_methods.tvl"
[ "$(wc -l <"$work/out")" -eq 3 ] || fail "glued_methods: expected 3 lines, got: $(cat "$work/out")"
expect 2 "$cli" check --settings "$work/s.cfg" "$work/folder.tvl"
grep -q "Kunne ikke lese filen" "$work/err" || fail "check of a folder gave no message"

# Any bytes at all: no crash, only the defined exit codes.
head -c 20000 /dev/urandom >"$work/noise.tvl"
"$cli" check --settings "$work/s.cfg" "$work/noise.tvl" >/dev/null 2>&1
[ $? -le 2 ] || fail "check of random bytes crashed"
"$cli" save --settings "$work/s.cfg" "$work/noise.tvl" "$work/noise-out.tvl" >/dev/null 2>&1
[ $? -eq 0 ] || fail "save of random bytes did not save"

[ "$failures" -eq 0 ] && echo "all cli file tests passed"
exit $((failures > 0))
