#!/usr/bin/env bash
# Reports the time from the start of the program to its main window on the screen, and the
# resident memory then, over several runs on a virtual X display. Usage: bench-startup.sh BUILD
set -euo pipefail
build=${1:-build}
runs=${RUNS:-5}
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
for i in $(seq "$runs"); do
  XDG_CONFIG_HOME="$home" xvfb-run -a -s "-screen 0 1280x800x24" \
    bash -c "\"$build/bench/bench_startup\" \$(date +%s%N)" 2>/dev/null
done
