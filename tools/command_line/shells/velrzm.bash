# SPDX-License-Identifier: Apache-2.0
# shellcheck shell=bash
#
# Completion of velrzm's words for bash. The program says what may stand next, so this never goes stale.
# Without an installation: source <(velrzm completion bash)

_velrzm()
{
    # "=" and ":" part the words of bash but not those of the program.
    local parting=${COMP_WORDBREAKS//[^=:]/} words=() i
    for ((i = 1; i <= COMP_CWORD; ++i)); do
        if ((${#words[@]})) && [[ ${COMP_WORDS[i]} == [=:]* || ${COMP_WORDS[i - 1]} == [=:]* ]]; then
            words[-1]+=${COMP_WORDS[i]}
        else
            words+=("${COMP_WORDS[i]}")
        fi
    done

    # bash replaces only what stands behind the last of them.
    local kept=''
    [[ -z $parting || ${words[-1]} != *["$parting"]* ]] || kept=${words[-1]%"${words[-1]##*["$parting"]}"}

    local program=$1 line
    type -P -- "$program" >/dev/null || program=velrzm
    COMPREPLY=()
    while IFS= read -r line; do
        case $line in
            :file) compopt -o default 2>/dev/null ;;
            *)
                line=${line%%$'\t'*}
                COMPREPLY+=("${line#"$kept"}")
                ;;
        esac
    done < <("$program" complete -- "${words[@]}" 2>/dev/null)
}
complete -F _velrzm velrzm
