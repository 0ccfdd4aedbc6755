#!/usr/bin/env bash
# tavlero-cli save and check: outputs, exit codes and messages. Args: bin folder, data folder.
set -u
cli="$1/tavlero-cli"
data=$2
example="$data/files/write/kalkulator.tvl"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0
[ -x "$cli" ] || { echo "FAIL: $cli is not built"; exit 1; }
fail() { echo "FAIL: $*" && failures=$((failures + 1)); }

# expect CODE COMMAND...: runs the command with stdout and stderr kept in $work.
expect() {
  local code=$1
  shift
  "$@" >"$work/out" 2>"$work/err"
  local got=$?
  [ "$got" -eq "$code" ] || fail "$* gave $got, not $code: $(cat "$work/err")"
}

# save: the example comes back compressed, and the settings file is made with defaults.
expect 0 "$cli" save --settings "$work/s.cfg" "$example" "$work/out.tvl"
cmp -s "$work/out.tvl" "$data/files/write/kalkulator_read_back.tvl" || fail "save did not give the expected bytes"
cmp -s "$work/s.cfg" "$data/files/default_settings.cfg" || fail "the settings file was not made with defaults"
[ -s "$work/err" ] && fail "save of a clean file printed: $(cat "$work/err")"

# A damaged file is saved as read, with the reader's message on one line of stderr.
expect 0 "$cli" save --settings "$work/s.cfg" "$data/files/read/small_numbers.tvl" "$work/small.tvl"
[ "$(grep -c "Det oppstod problemer under parsing" "$work/err")" -eq 1 ] || fail "parsing message: $(cat "$work/err")"

# Failures: unreadable input (the output stays as it was), unwritable output, bad usage.
mkdir "$work/folder.tvl"
printf 'old' >"$work/keep.tvl"
expect 2 "$cli" save --settings "$work/s.cfg" "$work/missing/x.tvl" "$work/keep.tvl"
grep -q "En feil oppstod under åpning av filen" "$work/err" || fail "no message for an unreadable input"
[ "$(cat "$work/keep.tvl")" = old ] || fail "the output of an unreadable input changed"
expect 2 "$cli" save --settings "$work/s.cfg" "$example" "$work/folder.tvl"
grep -q "Kunne ikke lagre filen '$work/folder.tvl'" "$work/err" || fail "no message for an unwritable output"
for usage in "save only-one.tvl" frobnicate "save --settings" ""; do expect 2 "$cli" $usage; done
expect 0 "$cli" --help
[ "$(LC_ALL=C.UTF-8 wc -L <"$work/out")" -le 80 ] || fail "--help is wider than 80 columns"
expect 0 "$cli" --version
[ "$(cat "$work/out")" = "Tavlero versjon 0.1" ] || fail "--version gave: $(cat "$work/out")"

# check: a clean file gives nothing and 0; a damaged one the checker's lines and 1.
expect 0 "$cli" check --settings "$work/s.cfg" "$example"
[ -s "$work/out" ] && fail "check of a clean file printed: $(cat "$work/out")"
expect 1 "$cli" check --settings "$work/s.cfg" "$data/files/read/glued_methods.tvl"
sed -n 's/^check //p' "$data/files/read/glued_methods.expected" | cmp -s - "$work/out" || fail "glued_methods: $(cat "$work/out")"
expect 2 "$cli" check --settings "$work/s.cfg" "$work/folder.tvl"
grep -q "Kunne ikke åpne filen '$work/folder.tvl'. Det finnes en mappe" "$work/err" || fail "check of a folder: $(cat "$work/err")"

# Any bytes at all: no crash; check finds problems, save saves.
head -c 20000 /dev/urandom >"$work/noise.tvl"
expect 1 "$cli" check --settings "$work/s.cfg" "$work/noise.tvl"
expect 0 "$cli" save --settings "$work/s.cfg" "$work/noise.tvl" "$work/noise-out.tvl"

# '-' is standard output; a FIFO is written into and stays; a FIFO as input gets the
# message at once.
expect 0 "$cli" save --settings "$work/s.cfg" "$example" -
cmp -s "$work/out" "$data/files/write/kalkulator_read_back.tvl" || fail "save to - did not give the expected bytes"
mkfifo "$work/fifo"
timeout 20 cat "$work/fifo" >"$work/from-fifo" &
expect 0 timeout 10 "$cli" save --settings "$work/s.cfg" "$example" "$work/fifo"
wait
cmp -s "$work/from-fifo" "$data/files/write/kalkulator_read_back.tvl" || fail "the FIFO's reader did not get the plan"
expect 2 timeout 10 "$cli" save --settings "$work/s.cfg" "$work/fifo" "$work/x.tvl"
[ -p "$work/fifo" ] || fail "the FIFO was replaced"

# A plan beyond the method limit: the work is done, the reader's message printed, exit 1.
awk 'BEGIN { for (i = 0; i < 32003; i++) printf "<userMethod><methodName>m%d</methodName><longDescription></longDescription></userMethod>\r\n", i }' >"$work/big.tvl"
expect 1 "$cli" save --settings "$work/s.cfg" "$work/big.tvl" "$work/big-out.tvl"
[ "$(grep -c "<userMethod>" "$work/big-out.tvl")" -eq 32001 ] || fail "the plan beyond the limit was not saved"
grep -q "2 metoder ble ikke lest inn" "$work/err" || fail "no message for the methods left out: $(cat "$work/err")"
# A reader that leaves standard output early: a message and status 2, not death by SIGPIPE.
"$cli" save --settings "$work/s.cfg" "$work/big.tvl" - 2>"$work/err" | head -c 10 >/dev/null
[ "${PIPESTATUS[0]}" -eq 2 ] && grep -q "Ingen programmer leser fra røret" "$work/err" || fail "early reader: $(cat "$work/err")"

[ "$failures" -eq 0 ] && echo "all cli file tests passed"
exit $((failures > 0))
