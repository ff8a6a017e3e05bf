# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# A display of our own where the machine has none: an X server on a free number that only we may
# connect to, a window manager, a session bus and the accessibility bus, each ended by its id.
# Sourced after common.sh.

display_folder=
display_pids=()

# True when the environment names a display that answers.
display_reachable() {
    local runtime=${XDG_RUNTIME_DIR:-/nonexistent}
    [[ -n ${WAYLAND_DISPLAY:-} && -S $runtime/${WAYLAND_DISPLAY#"$runtime/"} ]] && return
    [[ -n ${DISPLAY:-} ]] || return
    if command -v xdpyinfo >/dev/null; then
        timeout 5 xdpyinfo >/dev/null 2>&1
        return
    fi
    local number=${DISPLAY#:}
    [[ $number == "$DISPLAY" ]] && return # another machine's: only trying it will tell
    grep -q "/tmp/\.X11-unix/X${number%%.*}\$" /proc/net/unix
}

# background NAME COMMAND...: starts it with its messages in a log and remembers its id. In a session of
# its own: a Ctrl-C ends this script, which then ends one after the other.
background() {
    setsid "${@:2}" >"$log_folder/$1.log" 2>&1 </dev/null &
    display_pids+=($!)
}

# background_asking NAME COMMAND...: the same for one that tells on descriptor 3 that it is ready;
# what it told is left in `answer`.
background_asking() {
    mkfifo "$display_folder/$1.answer"
    setsid "${@:2}" 3>"$display_folder/$1.answer" >"$log_folder/$1.log" 2>&1 </dev/null &
    display_pids+=($!)
    read -r -t 30 answer <"$display_folder/$1.answer" ||
        fail "$1 did not start; its log is $log_folder/$1.log"
}

start_x_server() {
    local cookie answer
    cookie=$(mcookie)
    export XAUTHORITY=$display_folder/authority
    : >"$XAUTHORITY"
    xauth -q add :0 . "$cookie"
    background_asking xvfb Xvfb -displayfd 3 -screen 0 1440x900x24 -auth "$XAUTHORITY" -noreset
    export DISPLAY=:$answer
    xauth -q add "$DISPLAY" . "$cookie"
}

start_session_bus() {
    local answer
    background_asking dbus-daemon dbus-daemon --session --nofork --print-address=3
    export DBUS_SESSION_BUS_ADDRESS=$answer
}

# A bus of its own that starts nothing by itself: with no accessibility bus accessibility is off.
start_quiet_bus() {
    local answer
    cat >"$display_folder/bus.conf" <<XML
<busconfig>
  <type>session</type>
  <listen>unix:dir=$display_folder</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
XML
    background_asking dbus-daemon dbus-daemon --config-file="$display_folder/bus.conf" --nofork \
        --print-address=3
    export DBUS_SESSION_BUS_ADDRESS=$answer
}

# It keeps descriptor 3 to itself, so what it runs once it is ready opens the answer by name.
start_window_manager() {
    local answer
    background_asking openbox openbox --sm-disable \
        --startup "sh -c 'echo ready >\"\$0\"' '$display_folder/openbox.answer'"
}

# What precedes every start: a folder of its own, and the end of everything on every way out.
prepare_display() {
    trap on_exit EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM
    trap 'exit 129' HUP
    mkdir -p "$log_folder"
    display_folder=$(mktemp -d "${TMPDIR:-/tmp}/vantrix-display.XXXXXX")
    export XDG_RUNTIME_DIR=$display_folder
    unset WAYLAND_DISPLAY SESSION_MANAGER
}

start_display() {
    prepare_display
    start_x_server
    start_session_bus
    background at-spi-bus-launcher /usr/libexec/at-spi-bus-launcher --launch-immediately
    start_window_manager
}

# The same with nothing that need not run, for measuring. What is measured leaves its temporary files
# in the display's folder, so that they go with it however that ends.
start_quiet_display() {
    prepare_display
    unset QT_QPA_PLATFORM QT_LINUX_ACCESSIBILITY_ALWAYS_ON QT_ACCESSIBILITY
    export TMPDIR=$display_folder
    start_x_server
    start_quiet_bus
    start_window_manager
}

# on_display COMMAND...: runs it and hands on its exit code. In the background, so that a signal to
# the script is acted on at once.
on_display() {
    local status=0
    setsid "$@" &
    display_pids+=($!)
    wait $! || status=$?
    unset 'display_pids[-1]'
    return "$status"
}

# One that does not heed the request within five seconds is ended all the same.
end_process() {
    local tries
    kill "$1" 2>/dev/null || true
    for ((tries = 0; tries < 50; ++tries)); do
        kill -0 "$1" 2>/dev/null || break
        sleep 0.1
    done
    kill -KILL "$1" 2>/dev/null || true
    wait "$1" 2>/dev/null || true
}

# In the opposite order of their start, so that none complains of another's end.
stop_display() {
    local i
    for ((i = ${#display_pids[@]} - 1; i >= 0; --i)); do
        end_process "${display_pids[i]}"
    done
    display_pids=()
    [[ -z $display_folder ]] || rm -rf "$display_folder"
}

on_exit() {
    trap '' INT TERM HUP
    stop_display
}
