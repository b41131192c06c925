# shellcheck shell=bash
# Finding and using what the program's windows show, for scripts that run inside a private desktop.

# All visible elements that have an identifier, as JSON; nothing while the program isn't there.
snapshot() {
    dbus-send --session --print-reply=literal --dest=com.pingwell.mac.uitest /com/pingwell/uitest \
        com.pingwell.UITest1.Snapshot 2>/dev/null || true
}

# The first element whose identifier matches the regular expression, as JSON; fails when there is none.
element() {
    local found
    found=$(snapshot | jq --compact-output --arg id "^($1)\$" 'first(.[] | select(.id | test($id)))')
    [[ -n $found ]] && echo "$found"
}

# What the element reads, name and value.
text_of() {
    element "$1" | jq --raw-output '"\(.name) \(.value)"'
}

# Runs the command until it succeeds; fails with a sentence when that takes more than so many seconds. Between two tries
# it rests for as long as `step` says.
eventually() {
    local deadline=$((SECONDS + $1)) sentence=$2
    shift 2
    until "$@" >/dev/null; do
        if ((SECONDS > deadline)); then
            echo "Never came true: $sentence" >&2
            return 1
        fi
        sleep "${step:-0.1}"
    done
}

shows() { element "$1"; }
shows_no() { [[ $(snapshot) == *\[* ]] && ! element "$1"; }
reads() { [[ $(text_of "$1") == *"$2"* ]]; }

# The element, as JSON, once it has stopped moving.
resting_element() {
    local before="" now=""
    for ((tries = 0; tries < 50; tries++)); do
        now=$(element "$1" || true)
        [[ -n $now && $now == "$before" ]] && { echo "$now"; return; }
        before=$now
        sleep 0.1
    done
    echo "Not there, or never at rest: $1" >&2
    return 1
}

# Presses the left button on the element, as a hand would.
click() {
    local place x y
    place=$(resting_element "$1") || return 1
    read -r x y < <(jq --raw-output '"\(.x + .width / 2 | floor) \(.y + .height / 2 | floor)"' <<<"$place")
    xdotool mousemove --sync "$x" "$y" click 1
}

# Types into the field.
type_into() {
    click "$1" && xdotool type --delay 10 -- "$2"
}

# Saves a picture of the front window, or of one element in it, when the script was given a folder for pictures.
picture() {
    [[ -n ${pictures:-} ]] || return 0
    if (($# == 1)); then
        import -window "$(xdotool getactivewindow)" "$pictures/$1.png"
        return
    fi
    local place frame
    place=$(resting_element "$2") || return 1
    frame=$(jq --raw-output '"\(.width | ceil)x\(.height | ceil)+\(.x | floor)+\(.y | floor)"' <<<"$place")
    import -window root -crop "$frame" +repage "$pictures/$1.png"
}
