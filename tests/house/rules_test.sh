#!/usr/bin/env bash
# rules_test.sh FOLDER: builds a small house in FOLDER, breaks one rule after the other in it and looks whether
# rules.sh tells so, and tells nothing of the whole house.
set -euo pipefail
rules=$(cd "$(dirname "$0")" && pwd)/rules.sh
house=$1
failed=0

build() {
    rm -rf "$house"
    mkdir -p "$house"/mrlxmlclass/{runtime,platform,dom,session,tasks} "$house"/tests/tasks
    echo '#include <unistd.h>' >"$house/mrlxmlclass/platform/Posix_internal.h"
    echo '#include <pugixml.hpp>' >"$house/mrlxmlclass/dom/Document_internal.h"
    echo 'catch (...) {' >"$house/mrlxmlclass/runtime/Tail.h"
    printf '%s\n' '#include "mrlxmlclass/tasks/A_internal.h"' '// catch (...) never; co_await never inside ?:' \
        'const char* a = "std::filesystem";' 'if (x) y = co_await Next();' 'z = x ? 1 : 2;' '// Kept: odd' \
        >"$house/mrlxmlclass/tasks/A.cpp"
    echo 'TEST(A, KeepsWhatIsOdd) {' >"$house/tests/tasks/A_test.cpp"
}

# expect STATUS RULE
expect() {
    local status=0
    "$rules" "$2" "$house" >"$house/told" 2>&1 || status=$?
    if [ "$status" -ne "$1" ]; then
        echo "$2: status $status instead of $1, telling: $(cat "$house/told")"
        failed=1
    fi
}

# breaks RULE FILE LINE: the rule finds the line that is added to a file of a whole house.
breaks() {
    build
    mkdir -p "$(dirname "$house/$2")"
    printf '%s\n' "$3" >>"$house/$2"
    expect 1 "$1"
}

build
for rule in calls_in_choices platform catches parser internals lengths tests kept; do expect 0 "$rule"; done

breaks calls_in_choices mrlxmlclass/tasks/A.cpp 'y = x ? co_await Next() : 0;'
breaks calls_in_choices mrlxmlclass/tasks/A.cpp $'y = x ? 0\n    : co_await Next();'
breaks platform mrlxmlclass/tasks/A.cpp '#include <sys/stat.h>'
breaks platform mrlxmlclass/tasks/A.cpp '#include <filesystem>'
breaks platform mrlxmlclass/tasks/A.h 'std::filesystem::path p;'
breaks catches mrlxmlclass/tasks/A.cpp '} catch (const std::exception&) {'
breaks parser mrlxmlclass/dom/Node.cpp '#include <pugixml.hpp>'
breaks internals mrlxmlclass/tasks/A.h '#include "mrlxmlclass/tasks/A_internal.h"'
breaks lengths mrlxmlclass/tasks/A.cpp "$(seq 460)"
breaks lengths tests/tasks/A_test.cpp "$(seq 460)"
breaks lengths tests/tasks/B_test.cpp "TEST(B, IsLong) {
$(seq 59)
}"
breaks tests mrlxmlclass/tasks/B.cpp 'int b;'
breaks kept mrlxmlclass/session/C.cpp '// Kept: odd'
breaks kept mrlxmlclass/session/C.h '// Kept: odd'
build
echo 'TEST(A, Works) { /* Keeps */' >"$house/tests/tasks/A_test.cpp"
expect 1 kept

rm -rf "$house"
exit "$failed"
