#!/usr/bin/env bash
# Runs the libFuzzer targets listed in tests/fuzz/targets.txt (build them first: cmake --preset fuzz
# && cmake --build --preset fuzz).
#
#   scripts/fuzz.sh [TARGET...]              bounded run, as CI does: fixed seed, a fixed number of
#                                            inputs, the seed corpus copied to a scratch folder; fails
#                                            on a crash and when a target's coverage does not grow past
#                                            its seeds (a target wired to nothing)
#   scripts/fuzz.sh --minutes N [TARGET...]  long run: N minutes per target, random seed, new inputs
#                                            kept in build/fuzz/corpus/TARGET for the next long run
#
# A crashing input is left in build/fuzz/artifacts/TARGET/ and the log says which file; each target's
# full output is in build/fuzz/logs/TARGET.log.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
build=$root/build/fuzz
# Each fuzzer runs in a scratch folder of its own, where targets that read files write each input:
# in memory when the machine offers it.
scratch=$build/run
[[ -d /dev/shm && -w /dev/shm ]] && scratch=/dev/shm/regvane-fuzz-$$
trap 'rm -rf "/dev/shm/regvane-fuzz-$$"' EXIT

minutes=0
if [[ ${1:-} == --minutes ]]; then
  minutes=$2
  shift 2
fi

# Addresses reach the fuzzer through the comparisons it watches, so only with address-space
# randomisation off does the same seed give the same run.
fixed_addresses=()
if setarch "$(uname -m)" -R true 2>/dev/null; then
  fixed_addresses=(setarch "$(uname -m)" -R)
else
  echo "fuzz: cannot turn address-space randomisation off; runs may differ from run to run" >&2
fi

names=() corpora=() runs=()
while read -r name corpus count; do
  [[ -z $name || $name == \#* ]] && continue
  if (($# == 0)) || [[ " $* " == *" $name "* ]]; then
    names+=("$name") corpora+=("$corpus") runs+=("$count")
  fi
done <tests/fuzz/targets.txt
((${#names[@]})) || { echo "fuzz: no such target: $*" >&2; exit 2; }

# Fuzzes target i; writes its one-line outcome to $build/logs/NAME.result, 0 there for success.
fuzz_one() {
  local i=$1 name=${names[$1]}
  local binary=$build/App/Bin/$name
  local log=$build/logs/$name.log result=$build/logs/$name.result
  local artifacts=$build/artifacts/$name/ corpus
  rm -rf "$artifacts" && mkdir -p "$artifacts"
  local options=(-artifact_prefix="$artifacts" -timeout=10 -reload=0 -print_final_stats=1)
  if ((minutes > 0)); then
    corpus=$build/corpus/$name
    options+=(-max_total_time=$((minutes * 60)))
  else
    corpus=$build/run/$name/corpus
    rm -rf "$corpus"
    options+=(-seed=1 -runs="${runs[$i]}")
  fi
  mkdir -p "$corpus" "$scratch/$name"
  # The files of the seed folder, not its subfolders (a folder of real files can serve as seeds).
  find "$root/${corpora[$i]}" -maxdepth 1 -type f -exec cp -n {} "$corpus/" \;

  local start=$EPOCHREALTIME status=0
  (cd "$scratch/$name" && exec "${fixed_addresses[@]}" "$binary" "${options[@]}" "$corpus") >"$log" 2>&1 || status=$?
  # Wall time depends on what else the machine runs; the processor time of the run does not.
  local seconds cpu
  seconds=$(awk -v a="$start" -v b="$EPOCHREALTIME" 'BEGIN { printf "%.1f", b - a }')
  times >"$log.times" # the builtin itself, not in a subshell that has no children
  cpu=$(tail -n 1 "$log.times" | awk '{ gsub(/[ms]/, " "); printf "%.1f", $1 * 60 + $2 + $3 * 60 + $4 }')
  rm -f "$log.times"

  local inited final
  inited=$(sed -n 's/.*INITED cov: \([0-9]*\).*/\1/p' "$log" | head -n 1)
  final=$(sed -n 's/.*DONE *cov: \([0-9]*\).*/\1/p' "$log" | tail -n 1)
  local bound="${runs[$i]} runs"
  ((minutes > 0)) && bound="$minutes min"
  local summary="$name: $bound, ${seconds} s (processor ${cpu} s), cov ${inited:-?} at INITED, ${final:-?} at the end"
  if ((status != 0)); then
    local input
    input=$(sed -n 's/.*Test unit written to \(.*\)$/\1/p' "$log" | tail -n 1)
    summary+=" -- FAILED (exit $status)"
    [[ -n $input ]] && summary+="; input: $input; reproduce: $binary $input"
    echo "1 $summary" >"$result"
  elif ((minutes == 0)) && ! ((${final:-0} > ${inited:-0})); then
    echo "1 $summary -- FAILED: coverage did not grow past the seed corpus" >"$result"
  else
    echo "0 $summary" >"$result"
  fi
}

mkdir -p "$build/logs"
# Two at a time: the machines this runs on have two cores.
parallel=$(nproc)
((parallel > 2)) && parallel=2
for i in "${!names[@]}"; do
  rm -f "$build/logs/${names[$i]}.result"
  while (($(jobs -rp | wc -l) >= parallel)); do wait -n || true; done
  fuzz_one "$i" &
done
wait

failed=0
for name in "${names[@]}"; do
  read -r bad summary <"$build/logs/$name.result" || { bad=1; summary="$name: no result"; }
  echo "fuzz: $summary"
  if ((bad)); then
    failed=1
    tail -n 30 "$build/logs/$name.log" | sed "s/^/  $name| /"
  fi
done
exit $failed
