#!/usr/bin/env bash
# docs.sh ROOT: looks whether the documents agree with the house. Status 1, and the differences, if they do not.
# docs.sh ROOT sample FILE: takes the sample project out of docs/file-format.md.
set -euo pipefail
export LC_ALL=C
cd "$1"

# The first block of a language in a document.
block() { awk -v open="\`\`\`$1" '$0 == open { inside = 1; next } inside && $0 == "```" { exit } inside' "$2"; }

if [ "${2-}" = sample ]; then
    block xml docs/file-format.md >"$3"
    exit 0
fi

failed=0
tell() {
    echo "$*"
    failed=1
}
documents=(README.md CONTRIBUTING.md CHANGELOG.md docs/*.md)

# What the documents show of a program is one that compiles.
block cpp README.md | diff - examples/first_task.cpp || tell "README.md shows another example than examples/first_task.cpp"
sed -n '/^struct/,/^namespace {/p' examples/untie_goal.cpp | head -n -2 | diff <(block cpp docs/hosts.md) - ||
    tell "docs/hosts.md unties a goal in another way than examples/untie_goal.cpp"

# What a document names as a path of the house is there. A `*` stands for any name.
for document in "${documents[@]}"; do
    for path in $(grep -oE '`[A-Za-z_.*/-]+`' "$document" | tr -d '`' | grep -E '^[a-z.]+/|^[A-Za-z_]+\.md$' | sort -u); do
        compgen -G "$path" >/dev/null || compgen -G "mrlxmlclass/$path" >/dev/null ||
            tell "$document names $path, which is not there"
    done
    for target in $(grep -oE '\]\([^)#]+' "$document" | cut -c3- | grep -vE '^https?:' | sort -u); do
        [ -e "$(dirname "$document")/$target" ] || tell "$document links to $target, which is not there"
    done
done

# The description of the file tells of every element that is written.
for name in $(grep -rhoE 'out\.(Write|Wrapper)\("[A-Za-z]+"|write_keys\("[A-Za-z]+"|_element = "[A-Za-z]+"|\.section = "[A-Za-z]+"' \
    mrlxmlclass --include='*.cpp' --include='*_internal.h' | sed 's@.*"\(.*\)"@\1@' | sort -u); do
    grep -qw "$name" docs/file-format.md || tell "docs/file-format.md does not tell of $name"
done
exit "$failed"
