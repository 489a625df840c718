# Sourced by the scripts that photograph the program: a display of its own with a window manager, a
# home of its own, and what waiting, photographing and comparing need.
#
#   stage WIDTHxHEIGHT SCALE   sets up $work, the display and the surroundings
#   settle                     waits until nothing moves; the display is in $work/now.ppm then
#   differs ONE OTHER          two pictures show different things
# Needs xvfb, openbox, xdotool and imagemagick.

# Of the pixels, in percent: more than the edges of letters, less than a changed control.
tolerance=1

work=$(mktemp -d)
started=()
finish() {
    # The display, which came first, goes last.
    for ((i = ${#started[@]} - 1; i >= 0; --i)); do
        kill "${started[i]}" 2>/dev/null || true
        wait "${started[i]}" 2>/dev/null || true
    done
    rm -rf "$work"
}
trap finish EXIT

fail() {
    echo "$(basename "$0"): $*" >&2
    exit 1
}

# until_true COMMAND...: waits for it, 30 seconds at most.
until_true() {
    for _ in $(seq 150); do
        if "$@" >/dev/null 2>&1; then return; fi
        sleep 0.2
    done
    fail "waited in vain: $*"
}

settle() {
    import -window root "$work/now.ppm"
    for _ in $(seq 40); do
        sleep 0.4
        mv "$work/now.ppm" "$work/before.ppm"
        import -window root "$work/now.ppm"
        if cmp -s "$work/before.ppm" "$work/now.ppm"; then return; fi
    done
    fail "the display does not come to rest"
}

visible() {
    xdotool search --onlyvisible "$@"
}
invisible() {
    ! visible "$@"
}

stage() {
    # Any free display, which does not start afresh when a client leaves before another has come.
    Xvfb -displayfd 3 -nolisten tcp -noreset -screen 0 "$1x24" 3>"$work/display" >/dev/null 2>&1 &
    started+=($!)
    until_true test -s "$work/display"
    DISPLAY=:$(cat "$work/display")
    export DISPLAY QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=$2 LC_ALL=C.UTF-8
    export HOME=$work XDG_CONFIG_HOME=$work XDG_DATA_HOME=$work XDG_STATE_HOME=$work XDG_CACHE_HOME=$work
    openbox >/dev/null 2>&1 &
    started+=($!)
    until_true xdotool get_num_desktops
}

differs() {
    local size pixels
    size=$(identify -format '%w %h' "$1")
    [ "$size" = "$(identify -format '%w %h' "$2")" ] || return 0
    pixels=$(compare -metric AE -fuzz 5% "$1" "$2" null: 2>&1) || true
    awk -v size="$size" -v pixels="$pixels" -v tolerance="$tolerance" \
        'BEGIN { split(size, of); exit !(pixels * 100 > of[1] * of[2] * tolerance) }'
}
