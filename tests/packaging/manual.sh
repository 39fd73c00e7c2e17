#!/usr/bin/env bash
# The manual pages are well formed and name every option and every command that the programs have, in both languages.
# Usage: manual.sh FOLDER-OF-PROGRAMS FOLDER-OF-PAGES
set -euo pipefail
bin=$1 pages=$2
status=0

mandoc -T lint -W warning "$pages"/*.[15] "$pages"/it/*.[15] || status=1

# names PAGE WORD...: both languages' pages say each of the words.
names() {
    local page=$1 language word text
    shift
    for language in . it; do
        # \- and changes of the font are the page's own business.
        text=$(sed 's/\\f[A-Z]//g; s/\\-/-/g' "$pages/$language/$page")
        for word in "$@"; do
            grep -qE -- "(^|[^a-z-])$word([^a-z-]|\$)" <<<"$text" || { echo "$language/$page does not tell of $word"; status=1; }
        done
    done
}
options() { grep -oE -- '^  (-[a-z], )?--[a-z-]+' | grep -oE -- '--[a-z-]+' | grep -v -- --help-all | sort -u; }

mapfile -t commands < <("$bin/mintaroctl" --help | sed -n '/^Arguments:/,$p' | grep -oE '^ {24}[a-z]+ {2,}' | tr -d ' ')
[ ${#commands[@]} -ge 10 ] || { echo "mintaroctl --help does not list its commands"; exit 1; }
mapfile -t mintaro < <("$bin/mintaro" --help | options)
mapfile -t mintaroctl < <(for command in "${commands[@]}"; do "$bin/mintaroctl" "$command" --help; done | options)
[ ${#mintaro[@]} -ge 8 ] && [ ${#mintaroctl[@]} -ge 25 ] || { echo "--help does not list the options"; exit 1; }
names mintaro.1 "${mintaro[@]}"
names mintaroctl.1 "${commands[@]}" "${mintaroctl[@]}"
exit $status
