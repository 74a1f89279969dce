#!/bin/sh
# installed.sh CHECK FOLDER: one check of an installation; FOLDER is the check's own and made anew.
# The environment says what is checked: SOURCE and BUILD, the trees; PREFIX, where the check
# "install" puts the installation that the others use; LIB, its folder of libraries; CONFIG, the
# kind of build in small letters; CMAKE and CXX, the programs; STRIP, an option for installing.
set -u

here=$(cd "$(dirname "$0")" && pwd) || exit 1
check=$1
folder=$2
rm -rf "$folder" || exit 1
mkdir -p "$folder" || exit 1

# Nothing of the user's helps or hinders; without a display unless a check makes one.
unset LD_LIBRARY_PATH QT_PLUGIN_PATH XDG_DATA_DIRS DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
HOME=$folder
XDG_DATA_HOME=$folder/data
XDG_CONFIG_HOME=$folder/config
XDG_CACHE_HOME=$folder/cache
LC_ALL=C.UTF-8
export HOME XDG_DATA_HOME XDG_CONFIG_HOME XDG_CACHE_HOME LC_ALL

fail() {
    printf 'installed.sh %s: %s\n' "$check" "$1" >&2
    exit 1
}

# quietly COMMAND...: its output is shown when it fails.
quietly() {
    "$@" > "$folder/log" 2>&1 < /dev/null || {
        cat "$folder/log" >&2
        fail "this failed: $*"
    }
}

# same TEXT EXPECTED ACTUAL: two files.
same() {
    diff "$2" "$3" >&2 || fail "$1"
}

# has TEXT FILE LINE: the file has that line.
has() {
    grep -qxF -e "$3" "$2" || {
        cat "$2" >&2
        fail "$1"
    }
}

# has_package FILE: what --list-settings wrote says that the plant package is loaded.
has_package() {
    grep -q 'CUIX/LoadedCuix.*;.*plant\.cuix$' "$1" || {
        cat "$1" >&2
        fail "the package is not in the list of loaded ones"
    }
}

fresh_profile() {
    profile=$folder/profile
    rm -rf "$profile"
}

# play_script PREFIX: a script that loads an example in the console.
play_script() {
    fresh_profile
    printf 'MENULOAD\n"%s"\nGROUPS\n' "$1/share/quelhost/examples/plant.cuix" > "$folder/load.scr"
    "$1/bin/quelhost" --console --lang de --profile "$profile" --var FILEDIA=0 \
        --script "$folder/load.scr" --report-status > "$folder/said" 2> "$folder/statuses" ||
        fail "the program failed: $(cat "$folder/statuses")"
    printf 'MENULOAD\t5100\nGROUPS\t5100\n' > "$folder/good"
    same "a command failed" "$folder/good" "$folder/statuses"
    has "no texts of the host" "$folder/said" "Befehl: MENULOAD"
    grep -q '^Name der zu ladenden Menüdatei:' "$folder/said" || fail "no texts of the module"
    has "no menus of the package" "$folder/said" "    Menüs    Plant"
    "$1/bin/quelhost" --list-settings --profile "$profile" > "$folder/settings"
    has_package "$folder/settings"
}

check_install() {
    rm -rf "$PREFIX"
    mkdir -p "$(dirname "$PREFIX")"
    # The option may be empty on purpose.
    # shellcheck disable=SC2086
    quietly "$CMAKE" --install "$BUILD" --prefix "$folder/fresh" ${STRIP-}
    mv "$folder/fresh" "$PREFIX" || fail "it cannot be moved"
}

# What is to be installed, and nothing else.
expected_files() {
    for file in bin/quelhost \
        "$LIB/quelhost/libquelhost.so" "$LIB/quelhost/libquelhost_window.so" \
        "$LIB/quelhost/libVxCuiCmds.so" "$LIB/cmake/QuelHost/QuelHostConfig.cmake" \
        "$LIB/cmake/QuelHost/QuelHostConfigVersion.cmake" \
        "$LIB/cmake/QuelHost/QuelHostTargets.cmake" \
        "$LIB/cmake/QuelHost/QuelHostTargets-$CONFIG.cmake" "$LIB/libquelhost_streams.a" \
        share/applications/quelhost.desktop \
        share/mime/packages/quelhost.xml share/icons/hicolor/scalable/apps/quelhost.svg \
        share/icons/hicolor/scalable/mimetypes/application-x-quelhost-customization.svg \
        share/doc/quelhost/README.md share/doc/quelhost/CHANGELOG.md; do
        echo "$file"
    done
    (cd "$SOURCE/src" && find host stream -name '*.h') | sed 's|^|include/quel/|'
    (cd "$SOURCE" && find docs -type f) | sed 's|^|share/doc/quelhost/|'
    (cd "$SOURCE/resources" && find . -name '*.ts' -o -name '*.ui') |
        sed 's|^\.|share/quelhost/resources|; s|\.ts$|.qm|'
    (cd "$SOURCE/resources" && find help -name '*.html') | sed 's|^|share/quelhost/|'
    (cd "$SOURCE/examples" && ls -d -- *.pgp *.scr) | sed 's|^|share/quelhost/examples/|'
    (cd "$SOURCE/examples" && ls -d -- */customization.xml) |
        sed 's|^\(.*\)/.*|share/quelhost/examples/\1.cuix|'
}

check_files() {
    expected_files | sort > "$folder/expected"
    (cd "$PREFIX" && find . ! -type d) | sed 's|^\./||' | sort > "$folder/installed"
    same "other files are installed (>) than expected (<)" "$folder/expected" "$folder/installed"
    for file in $(cd "$PREFIX/share/doc/quelhost" && find . -name '*.md'); do
        # No target has blanks in it.
        # shellcheck disable=SC2013
        for target in $(grep -o '](\([^):#]*\))' "$PREFIX/share/doc/quelhost/$file" |
            sed 's/^](//; s/)$//'); do
            [ -e "$PREFIX/share/doc/quelhost/$(dirname "$file")/$target" ] ||
                fail "$file leads to $target, which is not there"
        done
    done
}

# Files are the same when they are staged for a package, and the program runs there too.
check_staging() {
    # shellcheck disable=SC2086
    DESTDIR=$folder/stage quietly "$CMAKE" --install "$BUILD" --prefix /usr ${STRIP-}
    (cd "$PREFIX" && find . | sort) > "$folder/installed"
    (cd "$folder/stage/usr" && find . | sort) > "$folder/staged"
    same "staging (>) installs others than installing (<)" "$folder/installed" "$folder/staged"
    [ "$(ls "$folder/stage")" = usr ] || fail "something is staged outside of the prefix"
    play_script "$folder/stage/usr"
}

# The machine that it was built on has left no trace.
check_paths() {
    if grep -rlF -e "$BUILD" -e "$SOURCE" -e "$(dirname "$folder")" "$PREFIX" >&2; then
        fail "the files above name folders of the build"
    fi
    for binary in "$PREFIX/bin/quelhost" "$PREFIX/$LIB"/quelhost/*.so; do
        for width in l L; do # texts of wide characters
            if strings -a -e "$width" "$binary" | grep -F -e "$BUILD" -e "$SOURCE" >&2; then
                fail "$binary names a folder of the build"
            fi
        done
        readelf -d "$binary" > "$folder/dynamic" || fail "$binary cannot be read"
        # The loader's own name, not one of the shell's.
        # shellcheck disable=SC2016
        if grep 'R.*PATH' "$folder/dynamic" | grep -v '\[$ORIGIN[^:]*\]$' >&2; then
            fail "$binary looks for libraries in a fixed folder"
        fi
    done
}

check_console() {
    play_script "$PREFIX"
    for package in "$PREFIX"/share/quelhost/examples/*.cuix; do
        quietly "$PREFIX/bin/quelhost" --check "$package"
    done
    # The prefix has letters that this locale does not know.
    LC_ALL=C
    play_script "$PREFIX"
}

# play_in_window PREFIX: a script in the window, with a package on the command line.
play_in_window() {
    fresh_profile
    printf 'GROUPS\n' > "$folder/groups.scr"
    quietly "$here/../window/with-display.sh" "$1/bin/quelhost" --window \
        --profile "$profile" --script "$folder/groups.scr" --report-status \
        "$1/share/quelhost/examples/plant.cuix"
    has "the script was not played" "$folder/log" "$(printf 'GROUPS\t5100')"
    "$1/bin/quelhost" --list-settings --profile "$profile" > "$folder/settings"
    has_package "$folder/settings"
}

check_window() {
    play_in_window "$PREFIX"
}

# build_module PREFIX: a module of another project, as a user of the package builds it.
build_module() {
    quietly "$CMAKE" -S "$here/module" -B "$folder/module" -G Ninja \
        "-DCMAKE_PREFIX_PATH=$1" "-DCMAKE_CXX_COMPILER=$CXX"
    quietly "$CMAKE" --build "$folder/module"
    fresh_profile
    echo GREET > "$folder/greet.scr"
    "$1/bin/quelhost" --console --lang en --profile "$profile" \
        --module "$folder/module/libgreeting.so" --script "$folder/greet.scr" --report-status \
        > "$folder/said" 2> "$folder/statuses" || fail "no session: $(cat "$folder/statuses")"
    has "the command was not run" "$folder/said" "Hello from another place!"
    has "the command failed" "$folder/statuses" "$(printf 'GREET\t5100')"
}

check_module() {
    build_module "$PREFIX"
    mkdir "$folder/later"
    cat > "$folder/later/CMakeLists.txt" << 'END'
cmake_minimum_required(VERSION 3.25)
project(later LANGUAGES CXX)
find_package(QuelHost 0.2 CONFIG REQUIRED)
END
    if "$CMAKE" -S "$folder/later" -B "$folder/later/build" -G Ninja \
        "-DCMAKE_PREFIX_PATH=$PREFIX" "-DCMAKE_CXX_COMPILER=$CXX" > "$folder/log" 2>&1; then
        fail "the package passes for a later one"
    fi
    grep -q 'not accepted' "$folder/log" || {
        cat "$folder/log" >&2
        fail "the package was refused for another reason than its version"
    }
}

# A host's store, as a user of the package builds it.
check_store() {
    quietly "$CMAKE" -S "$here/store" -B "$folder/store" -G Ninja \
        "-DCMAKE_PREFIX_PATH=$PREFIX" "-DCMAKE_CXX_COMPILER=$CXX"
    quietly "$CMAKE" --build "$folder/store"
    "$folder/store/store" > "$folder/said" || fail "the store does not work"
    printf 'Hello another place\nno more\n' > "$folder/expected"
    same "the store does other things" "$folder/expected" "$folder/said"
}

check_desktop() {
    type=application/x-quelhost-customization
    data=$folder/share
    cp -R "$PREFIX/share" "$data"
    # The desktop's own rules are beside, as on a machine where this is installed.
    XDG_DATA_DIRS=$data:/usr/local/share:/usr/share
    PATH=$PREFIX/bin:$PATH
    export XDG_DATA_DIRS PATH
    entry=$data/applications/quelhost.desktop
    quietly desktop-file-validate "$entry"
    [ ! -s "$folder/log" ] || fail "the entry can be better: $(cat "$folder/log")"
    for icon in "apps/$(sed -n 's/^Icon=//p' "$entry")" \
        mimetypes/application-x-quelhost-customization; do
        [ -f "$data/icons/hicolor/scalable/$icon.svg" ] || fail "there is no icon $icon"
    done
    quietly update-desktop-database "$data/applications"
    quietly update-mime-database "$data/mime"
    [ ! -s "$folder/log" ] || fail "the type is not described well: $(cat "$folder/log")"

    gio info -a standard::content-type,standard::icon "$data/quelhost/examples/plant.cuix" \
        > "$folder/known"
    has "packages are not known" "$folder/known" "  standard::content-type: $type"
    grep -q 'standard::icon: application-x-quelhost-customization,' "$folder/known" ||
        fail "packages have no icon of their own"
    gio mime "$type" | grep -q quelhost.desktop || fail "the program does not open packages"
}

# With other folders than usual, the tree that it was built in being gone.
check_folders() {
    LIB=lib/x86_64-linux-gnu
    quietly "$CMAKE" -S "$SOURCE" -B "$folder/build" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
        "-DCMAKE_CXX_COMPILER=$CXX" "-DCMAKE_INSTALL_LIBDIR=$LIB"
    quietly "$CMAKE" --build "$folder/build"
    DESTDIR=$folder/stage quietly "$CMAKE" --install "$folder/build" --prefix /usr --strip
    rm -rf "$folder/build"
    PREFIX=$folder/stage/usr
    [ -f "$PREFIX/$LIB/quelhost/libVxCuiCmds.so" ] || fail "the module is in another folder"
    play_script "$PREFIX"
    play_in_window "$PREFIX"
    build_module "$PREFIX"
}

case $check in
    install | files | staging | paths | console | window | module | store | desktop | folders)
        "check_$check"
        ;;
    *) fail "no such check" ;;
esac
