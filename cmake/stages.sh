# What the scripts of the root share: stages of one line each, with their output in a log that is
# shown when a stage fails. Sourced by sh from the project's root.

log=build/stages.log
mkdir -p build || exit 1
: > "$log" || exit 1

# say TEXT: one line for the user.
say() {
    printf '%s\n' "$*"
}

# stage TEXT COMMAND...: says TEXT and runs the command; ends the script when it fails.
stage() {
    say "$1"
    shift
    if ! "$@" >> "$log" 2>&1 < /dev/null; then
        say "This failed: $*" >&2
        say "The end of its output (all of it is in $log):" >&2
        tail -n 40 "$log" >&2
        exit 1
    fi
}

# as_root COMMAND...: as the user root, without questions.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo > /dev/null 2>&1; then
        sudo -n "$@"
    else
        echo "Installing packages needs the user root or sudo."
        return 1
    fi
}

install_now() {
    as_root apt-get update &&
        as_root env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y --no-install-recommends "$@"
}

# install_packages LIST...: what of these package lists is missing.
install_packages() {
    missing=
    for package in $(cat "$@" | grep -v '^#'); do
        case $(dpkg-query -W -f='${Status}' "$package" 2> /dev/null) in
            "install ok installed") ;;
            *) missing="$missing $package" ;;
        esac
    done
    if [ -n "$missing" ]; then
        # The list is split into its words on purpose.
        # shellcheck disable=SC2086
        stage "Installing$missing" install_now $missing
    fi
}

# configure PRESET [OPTION...]: once, or again when the options are others than the last time.
configure() {
    preset=$1
    made=build/$preset/configured-with
    if [ ! -f "build/$preset/build.ninja" ] || [ "$(cat "$made" 2> /dev/null)" != "$*" ]; then
        stage "Configuring $preset" cmake --preset "$@"
        echo "$*" > "$made"
    fi
}

# build PRESET: whatever is out of date.
build() {
    stage "Building $1" cmake --build "build/$1"
}
