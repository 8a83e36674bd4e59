#!/usr/bin/env bash
# rules.sh RULE ROOT: looks for what breaks a rule of the house below ROOT and prints it. Status 1 if anything does.
set -euo pipefail
export LC_ALL=C
rule=$1
cd "$2"

sources() { find mrlxmlclass -name '*.h' -o -name '*.cpp' | sort; }

# The code of a file on numbered lines, its line comments and texts blanked out.
code() { sed -E 's@"([^"\\]|\\.)*"@""@g; s@//.*@@' "$1"; }

# Lines of code that match, as file:line:text, in all sources that the first pattern does not except.
lines_with() {
    local except=$1 pattern=$2 file
    for file in $(sources | grep -Ev "$except"); do
        code "$file" | grep -nE "$pattern" | sed "s@^@$file:@" || true
    done
}

# g++ 12 destroys temporaries twice when a call that may suspend stands inside a choice.
calls_in_choices() {
    local file
    for file in $(grep -rlE 'co_await' mrlxmlclass | sort); do
        code "$file" | tr '\n' ' ' | tr ';{}' '\n' | grep -E 'co_await' | grep -E '\?.*:' | sed "s@^ *@$file: @" || true
    done
}

# Only mrlxmlclass/platform knows an operating system.
platform() {
    local headers='unistd|fcntl|dirent|pthread|spawn|poll|termios|dlfcn|langinfo|locale|locale\.h|clocale|signal|csignal'
    headers="$headers|sys/[a-z]+|ctime|time|fstream|cstdio|stdio|filesystem|windows"
    lines_with '^mrlxmlclass/platform/' "#include <($headers)(\.h)?>"
    lines_with '^mrlxmlclass/platform/' 'std::(filesystem|locale|getenv|time|fopen|[io]?fstream|system)\b|\bgetenv *\('
}

# Failures end in one place; only the log's own end and that of a walk stand beside it.
catches() {
    lines_with '^mrlxmlclass/(runtime/(Tail|Walk)\.(h|cpp)|session/ErrorsHandler\.cpp)$' '\bcatch *\('
}

# One file knows which parser stands below the documents.
parser() { lines_with '^mrlxmlclass/dom/Document_internal\.h$' '#include <pugi'; }

# What is installed stands without what is not.
internals() {
    local file
    for file in $(sources | grep '\.h$' | grep -v '_internal\.h$'); do
        grep -nE '#include "[^"]*_internal\.h"' "$file" | sed "s@^@$file:@" || true
    done
}

lengths() {
    local file lines
    for file in $(sources) $(find tests -name '*.h' -o -name '*.cpp' | sort); do
        lines=$(wc -l <"$file")
        [ "$lines" -le 450 ] || echo "$file: $lines lines, 450 are the most"
    done
    for file in $(find tests -name '*.cpp' | sort); do
        awk -v file="$file" '/^TEST(_F|_P)?\(/ { test = $0; first = NR }
            /^}/ && test { if (NR - first >= 60) print file ": " NR - first + 1 " lines, 60 are the most: " test; test = "" }' "$file"
    done
}

# The test files of a source: of its name, or of its name and a concern.
tests_of() {
    local base=${1%.cpp}
    compgen -G "tests/${base#mrlxmlclass/}_test.cpp" || true
    compgen -G "tests/${base#mrlxmlclass/}_*_test.cpp" || true
}

tests() {
    local file
    for file in $(sources | grep '\.cpp$'); do
        [ -e "tests/$(sed 's@^mrlxmlclass/@@; s@\.cpp$@_test.cpp@' <<<"$file")" ] || echo "$file has no test file"
    done
}

# A header's oddities are tested somewhere in its folder.
kept() {
    local file where
    for file in $(grep -rlE '// Kept: ' mrlxmlclass | sort); do
        case $file in
            *.cpp) where=$(tests_of "$file") ;;
            *) where=$(dirname "tests/${file#mrlxmlclass/}") ;;
        esac
        { [ -n "$where" ] && grep -rqsE '^TEST(_F|_P)?\([A-Za-z0-9_]+, [A-Za-z0-9]*Keeps' $where; } ||
            echo "$file keeps something that no test named Keeps looks at"
    done
}

broken=$("$rule")
[ -z "$broken" ] || { echo "$broken"; exit 1; }
