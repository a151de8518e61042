#!/usr/bin/env bash
# Reports the resident and proportional memory of the program, and its peak, at start, with a
# 10 MB and a 100 MB page open, after 25 undo steps on the 10 MB page, after a save of the
# 100 MB page, and after the first switch to Layout; each situation in a process of its own on
# a virtual X display.
# Usage: bench-memory.sh BUILD
set -euo pipefail
build=${1:-build}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
python3 - "$work" <<'PY'
import sys
row = '<tr><td class="cell">Some text in a table cell</td><td>42</td></tr>\n'
for name, size in (("10MB.htm", 10 * 1024 * 1024), ("100MB.htm", 100 * 1024 * 1024)):
    with open(f"{sys.argv[1]}/{name}", "w") as f:
        f.write("<html><body><table>\n" + row * (size // len(row)) + "</table></body></html>\n")
PY
run() {
  XDG_CONFIG_HOME="$work/config" xvfb-run -a -s "-screen 0 1280x800x24" \
    "$build/bench/bench_memory" "$@" 2>/dev/null | grep -E 'RSS'
}
run start
run open "$work/10MB.htm"
run open "$work/100MB.htm"
run undo "$work/10MB.htm"
run save "$work/100MB.htm"
run layout
