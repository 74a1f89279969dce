#!/bin/sh
# with-display.sh COMMAND [ARGUMENT...]: runs the command on an X server of its own with a window
# manager, ends both, and hands on the command's exit status. 125 when there is no such display.
set -u

server=
manager=
folder=$(mktemp -d) || exit 125

end_display() {
    for process in $manager $server; do
        kill "$process" 2> /dev/null
        wait "$process" 2> /dev/null
    done
    rm -rf "$folder"
}
trap end_display EXIT
trap 'exit 125' HUP INT TERM

give_up() {
    echo "with-display.sh: $1" >&2
    cat "$folder/log" >&2
    exit 125
}

# The server picks a free display, says its number once it answers, and closes the pipe if it cannot.
mkfifo "$folder/number" || exit 125
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -noreset \
    3> "$folder/number" > "$folder/log" 2>&1 &
server=$!
read -r number < "$folder/number" || give_up "no X server"
DISPLAY=:$number
export DISPLAY
unset QT_QPA_PLATFORM WAYLAND_DISPLAY

# Without settings of the user's, so that keys and places are what they are everywhere.
HOME=$folder XDG_CONFIG_HOME=$folder openbox --sm-disable >> "$folder/log" 2>&1 &
manager=$!
tries=400
until xprop -root _NET_SUPPORTING_WM_CHECK 2> /dev/null | grep -q 'window id'; do
    tries=$((tries - 1))
    if [ "$tries" -eq 0 ] || ! kill -0 "$manager" 2> /dev/null; then
        give_up "no window manager"
    fi
    sleep 0.05
done

"$@"
