#!/bin/sh
# Builds the tests and runs them. With --all the long ones run too.
set -u
cd "$(dirname "$0")" || exit 1
. cmake/stages.sh

selection='-LE long'
case "${1-}" in
    "") ;;
    --all) selection= ;;
    *)
        say "usage: ./test.sh [--all]" >&2
        exit 2
        ;;
esac

install_packages cmake/packages.txt cmake/packages-test.txt
configure release -DQUEL_TESTS=ON
build release
say "Testing"
# The selection is two words on purpose.
# shellcheck disable=SC2086
exec ctest --test-dir build/release --output-on-failure -j "$(nproc)" $selection
