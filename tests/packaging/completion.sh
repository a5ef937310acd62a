#!/usr/bin/env bash
# What the completion of tolctl offers. Usage: completion.sh COMPLETION TOLCTL
set -uo pipefail
. /usr/share/bash-completion/bash_completion
. "$1"
tolctl=$2
failed=0

# Usage: offers "what is offered, sorted, by blanks" WORD... (the last one is being typed)
offers() {
  local expected=$1
  shift
  COMP_WORDS=("$tolctl" "$@")
  COMP_CWORD=$#
  COMP_LINE="${COMP_WORDS[*]}"
  COMP_POINT=${#COMP_LINE}
  COMPREPLY=()
  _tolctl
  local offered
  offered=$(printf '%s\n' "${COMPREPLY[@]}" | sort | xargs)
  if [ "$offered" != "$expected" ]; then
    echo "tolctl $*: offers '$offered', expected '$expected'"
    failed=1
  fi
}

offers "demo dump" d
offers "update" u
offers "--dir" --d
offers "update" --dir /tmp up
offers "--site" update --s
offers "--module" --dir /tmp update --all --m
offers "" update --nothing

# Every command that the program tells of is offered.
offers "$("$tolctl" --help | sed -n '/^Subcommands:/,/^$/s/^  \([a-z][a-z-]*\) .*/\1/p' | sort | xargs)" ""

cd "$(mktemp -d)"
mkdir folder && touch file.MDB
offers "file.MDB folder" dump ""
offers "folder" --dir ""
rm -r "$PWD"
exit $failed
