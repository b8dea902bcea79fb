#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The libzoeffect developers
# SPDX-License-Identifier: MIT

# summary.sh RESULTS: reads the output of ctest --output-on-failure, and of each test the file that it left,
# RESULTS/<name>.result.txt, in Qt Test's text form. Prints one line for each test as it ends, under it what
# failed; leaves "<passed> <failed>" in RESULTS/sum.
#
# A row is a line "PASS   : name"; initTestCase and cleanupTestCase, which every program has, do not count.
# Whatever else ends a row counts as a failure, skipped and expected failures too, and so does a program that
# ends badly without a failed row, or well without any row.
set -euo pipefail
results=$1

passed=0
failed=0
finished=false
showing=false # whether the lines are the output of a test that ended badly

# report NAME STATUS
report() {
    local name=$1 status=$2 file=$results/$1.result.txt good=0 bad=() ended=
    if [[ -e $file ]]; then
        good=$(grep -E '^PASS   : ' "$file" | grep -cvE '::(initTestCase|cleanupTestCase)\(\)$' || true)
        local ends='^(FAIL!  |XFAIL  |XPASS  |SKIP   |BPASS  |BFAIL  |BXPASS |BXFAIL |BSKIP  ): '
        if grep -qE "$ends" "$file"; then
            mapfile -t bad <<< "$(grep -E "$ends" "$file")"
        fi
    fi
    showing=false
    if [[ $status != Passed* ]]; then
        showing=true # ctest goes on with the output
        ((${#bad[@]})) || ended="ended badly: $status"
    elif ((good + ${#bad[@]} == 0)); then
        ended='has no rows'
    fi
    [[ -z $ended ]] || bad+=("FAIL!  : $name $ended")
    passed=$((passed + good))
    failed=$((failed + ${#bad[@]}))
    printf '   %-36s %5d passed' "$name" "$good"
    ((${#bad[@]} == 0)) || printf ', %d failed' "${#bad[@]}"
    echo
    if [[ -n $ended ]]; then
        echo "      ${bad[-1]}"
    elif [[ $showing == false ]] && ((${#bad[@]})); then
        printf '      %s\n' "${bad[@]}"
    fi
}

result='^ *[0-9]+/[0-9]+ Test +#[0-9]+: ([^ ]+) [. ]*(\*\*\*)?(.*[^ ]) *$'
while IFS= read -r line; do
    case $line in
    '' | 'Test project '* | *' Start '*[0-9]': '* | *'QStandardPaths: XDG_RUNTIME_DIR not set'*) ;;
    *'% tests passed, '* | 'No tests were found'*)
        finished=true
        showing=false
        ;;
    *)
        if [[ $line =~ $result ]]; then
            report "${BASH_REMATCH[1]}" "${BASH_REMATCH[3]}"
        elif [[ $showing == true ]]; then
            # What went well needs no word.
            [[ $line =~ ^('PASS   : '|'Config: '|'Totals: '|'********* ') ]] || echo "      $line"
        elif [[ $finished == false ]]; then
            echo "   $line"
        fi
        ;;
    esac
done
if [[ $finished == false ]]; then
    echo '   ctest did not come to its end'
    failed=$((failed + 1))
fi
echo "$passed $failed" > "$results/sum"
