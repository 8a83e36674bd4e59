#!/usr/bin/env bash
# tour.sh PRX: shows the main job on a real plan; fails if anything else happens.
set -euo pipefail
examples=$(cd "$(dirname "$0")" && pwd)
prx=$(realpath "$1")

tell() { printf '\n== %s\n' "$*"; }
show_and_run() {
    printf '$ prx %s\n' "$*"
    "$prx" "$@"
}
# Everything that a plan holds but the row numbers, which move with each task above.
content() { "$prx" show --json "$1" | sed 's/"position": [0-9]*, //; s/,$//'; }

# Refuses changes to any other task than those.
expect_changes() {
    content "$1" >before.json
    content "$2" >after.json
    diff before.json after.json >changes || true
    local names
    names=$(sed -n 's/^[<>] {[^{]*"name": "\([^"]*\)".*/\1/p' changes | sort -u | paste -sd, -)
    [ "$names" = "$3" ] || { echo "Expected changes to: $3; found: $names" >&2; exit 1; }
    ! grep '^[<>]' changes | grep -v '"key": ' || { echo "Expected changes to no more than tasks" >&2; exit 1; }
}

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export XDG_STATE_HOME=$folder/state
cp "$examples/house.prx" "$folder/house.prx"
cd "$folder"

tell "A plan, as it was saved"
show_and_run show house.prx

tell "The end of it, drawn: behind each name the rows that it waits for"
weeks=(--from 2026-11-05 --to 2026-12-17)
show_and_run show --gantt "${weeks[@]}" house.prx

tell "The kitchen comes a week late: what waits for it moves, and what was told on the way"
cp house.prx late.prx
show_and_run set late.prx Kitchen start=2026-11-09
show_and_run show --gantt "${weeks[@]}" late.prx
expect_changes house.prx late.prx "Final inspection,Garden and handover,Inspection,Interior,Kitchen,Lawn and hedges,\
Mend what was found,Moving in,Occupancy certificate,Paths and terrace"

tell "Another copy gets a task under a phase, and the task its dates: the summaries above follow"
cp house.prx changed.prx
show_and_run add changed.prx "Solar panels" --under Services
show_and_run set changed.prx "Solar panels" start=2026-11-04 duration=6d cost=9400

tell "Somebody is found for it: the event that a planner hears"
show_and_run person changed.prx add "Sun & Sons" --phone "555 0162"
show_and_run assign changed.prx "Solar panels" person "Sun & Sons" | tee heard
grep -q '^AssigmentChange(.*, Sun & Sons)$' heard || { echo "Nothing was heard of it" >&2; exit 1; }
show_and_run person changed.prx list

tell "Another task goes"
show_and_run remove changed.prx "Topping-out"

tell "The changed file, opened again"
show_and_run show changed.prx
show_and_run check changed.prx

tell "What differs from the plan as it was"
expect_changes house.prx changed.prx "Services,Solar panels,Topping-out"
grep '^[<>]' changes
tell "Nothing else changed"
