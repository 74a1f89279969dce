#!/bin/sh
# Builds what is missing and starts quelhost with the arguments. Without arguments it plays a short
# tour in a profile of its own and then leaves you in the host.
set -u
started_in=$PWD
cd "$(dirname "$0")" || exit 1
. cmake/stages.sh

install_packages cmake/packages.txt
configure release
build release

program=$PWD/build/release/bin/quelhost
examples=$PWD/build/release/share/quelhost/examples

if [ $# -gt 0 ]; then
    cd "$started_in" || exit 1
    exec "$program" "$@"
fi

profile=$(mktemp -d) || exit 1
trap 'rm -rf "$profile"' EXIT
trap 'exit 1' HUP TERM

say "The tour: examples/tour.scr in a fresh profile"
cd "$examples" || exit 1
"$program" --profile "$profile" --var FILEDIA=0 --script tour.scr || exit 1
if [ -t 0 ] && [ -t 1 ]; then
    say "Now it is your turn, in the same profile. HELP lists the commands, QUIT ends."
    "$program" --profile "$profile"
fi
