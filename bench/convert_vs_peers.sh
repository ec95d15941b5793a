#!/usr/bin/env bash
# geoquill-convert against GeographicLib's GeoConvert and PROJ's cs2cs on the same random
# points, written as "lat lon" lines: the median wall time of three runs of each, every one
# writing to /dev/null, the ratios against the targets, and the peak memory of ours on this
# file and on one five times as long.
#
#   bench/convert_vs_peers.sh [GEOQUILL_CONVERT]
#
# Without an argument, geoquill-convert is built in build-release (Release, no app, no tests).
# Peers that are missing are installed with apt-get when this runs as root or with sudo, and
# skipped with a message otherwise. LINES (default 1000000) sets the number of points and
# MEMORY_LINES (default 5 * LINES, 0 for none) the file of the memory run.
#
# Ours writes each point in all three notations; GeoConvert -u writes UTM alone, and cs2cs
# writes one fixed UTM zone (32) for every point, as it has no choice of zone by point.
set -euo pipefail

repo=$(cd "$(dirname "$0")/.." && pwd)
lines=${LINES:-1000000}
memory_lines=${MEMORY_LINES:-$((5 * lines))}
runs=3

ours=${1:-}
if [ -z "$ours" ]; then
    echo "building geoquill-convert (Release) in $repo/build-release" >&2
    cmake -S "$repo" -B "$repo/build-release" -G Ninja -DCMAKE_BUILD_TYPE=Release \
        -DGEOQUILL_BUILD_SHELL=OFF -DGEOQUILL_BUILD_TESTS=OFF >/dev/null
    cmake --build "$repo/build-release" --target geoquill-convert -j "$(nproc)" >/dev/null
    ours=$repo/build-release/convert/geoquill-convert
fi
[ -x "$ours" ] || { echo "no geoquill-convert at $ours" >&2; exit 2; }

# A peer's program, installed from its Debian package when it is missing and we may.
find_peer() {
    local program=$1 package=$2
    if ! command -v "$program" >/dev/null; then
        local sudo=()
        [ "$(id -u)" -eq 0 ] || sudo=(sudo -n)
        if command -v apt-get >/dev/null &&
            "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq \
                --no-install-recommends "$package" >/dev/null 2>&1; then
            echo "installed $package for $program" >&2
        else
            echo "skipping $program: not found, and package $package could not be installed" >&2
            return 1
        fi
    fi
    command -v "$program"
}

scratch=$(mktemp -d "${TMPDIR:-/tmp}/geoquill-bench.XXXXXX")
trap 'rm -rf "$scratch"' EXIT

# Points spread over the UTM range of the whole earth, the same ones at every run.
make_points() {
    awk -v n="$1" 'BEGIN { srand(20240601);
        for (i = 0; i < n; i++) printf "%.6f %.6f\n", -80 + 164 * rand(), -180 + 360 * rand() }'
}
points=$scratch/points.txt
make_points "$lines" >"$points"

# The median of three runs: "seconds peak_kilobytes" of the median run.
median_run() {
    local results=()
    for _ in $(seq "$runs"); do
        /usr/bin/time -f '%e %M' -o "$scratch/time" "$@" <"$points" >/dev/null
        results+=("$(cat "$scratch/time")")
    done
    printf '%s\n' "${results[@]}" | sort -n | sed -n "$(((runs + 1) / 2))p"
}

declare -A seconds
echo "$lines points as \"lat lon\" lines; median wall time of $runs runs, output to /dev/null"
report() {
    local name=$1
    shift
    local result
    result=$(median_run "$@")
    seconds[$name]=${result% *}
    printf '  %-18s %6.2f s   peak %6.1f MB   %s\n' "$name" "${result% *}" \
        "$(echo "${result#* }" | awk '{ print $1 / 1024 }')" "$*"
}

report geoquill-convert "$ours" --input dd --lat 1 --lon 2 --first-line 1
ours_peak_kb=$(/usr/bin/time -f '%M' "$ours" --lat 1 --lon 2 --first-line 1 \
    <"$points" 2>&1 >/dev/null | tail -n 1)
if geoconvert=$(find_peer GeoConvert geographiclib-tools); then
    report "GeoConvert -u" "$geoconvert" -u
fi
if cs2cs=$(find_peer cs2cs proj-bin); then
    report "cs2cs" "$cs2cs" EPSG:4326 EPSG:32632
fi

echo
echo "Ratios (peer's time / ours):"
verdict() { awk -v r="$1" -v t="$2" 'BEGIN { print (r >= t ? "MET" : "NOT MET") }'; }
for peer in "cs2cs:2" "GeoConvert -u:4"; do
    name=${peer%:*} target=${peer##*:}
    if [ -n "${seconds[$name]:-}" ]; then
        ratio=$(awk -v p="${seconds[$name]}" -v o="${seconds[geoquill-convert]}" \
            'BEGIN { printf "%.2f", (o > 0 ? p / o : 0) }')
        printf '  %-18s %6sx   target >= %sx   %s\n' "$name" "$ratio" "$target" \
            "$(verdict "$ratio" "$target")"
    else
        printf '  %-18s    n/a   target >= %sx   (peer skipped)\n' "$name" "$target"
    fi
done

echo
echo "Peak memory of geoquill-convert (target < 100 MB):"
printf '  %-30s %6.1f MB\n' "$lines lines" "$(awk -v k="$ours_peak_kb" 'BEGIN { print k / 1024 }')"
if [ "$memory_lines" -gt 0 ]; then
    make_points "$memory_lines" >"$points"
    kb=$(/usr/bin/time -f '%M' "$ours" --lat 1 --lon 2 --first-line 1 "$points" 2>&1 \
        >/dev/null | tail -n 1)
    printf '  %-30s %6.1f MB   (from a file)\n' "$memory_lines lines" \
        "$(awk -v k="$kb" 'BEGIN { print k / 1024 }')"
    kb=$(cat "$points" | /usr/bin/time -f '%M' "$ours" --lat 1 --lon 2 --first-line 1 2>&1 \
        >/dev/null | tail -n 1)
    printf '  %-30s %6.1f MB   (through a pipe)\n' "$memory_lines lines" \
        "$(awk -v k="$kb" 'BEGIN { print k / 1024 }')"
fi
