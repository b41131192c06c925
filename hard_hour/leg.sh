# shellcheck shell=bash
# What the legs of a hard hour have in common: each uses the program in a private desktop of its own, against a stand-in
# service of its own, and writes what it did and found to its folder as it happens.
#
# leg.sh FOLDER MINUTES SEED, sourced by a leg; FOLDER holds the copies of the programs.

here=$(dirname "$(realpath "${BASH_SOURCE[0]}")")
source "$here/../tools/desktop/window.sh"
# An hour of asking leaves the processor to what is asked.
step=0.4

folder=$(realpath "$1")
minutes=$2
seed=$3
RANDOM=$seed
programs=$(dirname "$folder")
token="token-of-the-hard-hour"
# All that were ever good; none may be found outside the keyring.
tokens=("$token")
serial=0
processes=()
trap 'kill "${processes[@]}" 2>/dev/null || true; wait' EXIT
trap 'exit 130' INT TERM
: >"$folder/done.ndjson"

# The browser that signs in comes back with the program under test.
mkdir -p "$folder/path"
ln -sf "$here/../tests/e2e/stand_in_browser" "$folder/path/xdg-open"
export PINGWELL_PROGRAM=$programs/pingwell PATH=$folder/path:$PATH

now() { printf '%s' "$EPOCHREALTIME"; }
# note KIND [JSON]: one line of what this script did, or found.
note() { printf '{"t":%s,"kind":"%s"%s}\n' "$(now)" "$1" "${2:+,$2}" >>"$folder/done.ndjson"; }
chance() { ((RANDOM % 100 < $1)); }
one_of() { local -a all=("$@"); printf '%s' "${all[RANDOM % $#]}"; }
running() { kill -0 "$program" 2>/dev/null; }
keys() { xdotool key --delay 40 "$@"; }
time_is_up() { ((SECONDS >= minutes * 60)); }

announced() { grep -q 'listening on' "$1" 2>/dev/null; }

# start_service NAME: sets `address`, and the service's first alerts to none.
start_service() {
    "$programs/service" --port 0 --token "$token" >"$folder/$1.log" 2>"$folder/$1.err" &
    processes+=($!)
    eventually 30 "the stand-in service listens" announced "$folder/$1.log"
    address=http://127.0.0.1:$(grep -o '[0-9]*$' "$folder/$1.log")
    forget_alerts
}
forget_alerts() { at_service /test/seed -o /dev/null -d '{"alerts":0}'; }

# It may be away for a while, on purpose.
at_service() { curl -fsS --max-time 30 --retry 20 --retry-delay 1 --retry-connrefused "$address$1" "${@:2}"; }
kept_token() { secret-tool lookup service com.pingwell.mac.session account session; }
remember_token() {
    local kept
    kept=$(kept_token) && [[ -n $kept ]] && tokens+=("$kept")
    return 0
}
keep_token() { printf %s "$token" | secret-tool store --label=Pingwell service com.pingwell.mac.session account session; }

dashboards() { at_service /test/requests | jq '[.data[] | select(.path == "/dashboard").count] | add // 0'; }
asked_more_often() { (($(dashboards) > $1)); }
# After this the program has heard of what happened before it, unless a fault swallowed the answer.
await_poll() { eventually 90 "the program asks for the dashboard" asked_more_often "$(dashboards)"; }

# {"NUMBER": ANSWER or null} for all alerts at the service.
answers() {
    at_service /test/dashboard | jq --compact-output '[.data.alerts[]
        | {key: (.id | capture("^(?<n>[0-9]+)-").n), value: .answer}] | from_entries'
}
answer_of() { answers | jq --raw-output ".[\"$1\"] // empty"; }
is_answered() { [[ -n $(answer_of "$1") ]]; }

# post_ask choice|text: sets `serial` to the new ask's number.
post_ask() {
    serial=$((serial + 1))
    local form='"answerType":"text"'
    [[ $1 == text ]] || form="\"actions\":[\"$serial choice 1\",\"$serial choice 2\",\"$serial choice 3\"]"
    at_service /agent/alerts -o /dev/null -d "{\"id\":\"$serial-ask\",\"title\":\"#$serial May it go on?\",$form,\"expiresInMinutes\":600}"
    note posted "\"serial\":$serial"
}

# What another device of the person does.
elsewhere() { curl -s --max-time 20 -o /dev/null -H "Authorization: Bearer $token" "$address/workspaces/w1/alerts/$1" "${@:2}"; }
answer_elsewhere() { elsewhere "$1-ask/answer" -d "{\"answer\":\"$1 choice 3\"}"; }
delete_elsewhere() { elsewhere "$1-ask" -X DELETE; }

# The token may lie in the keyring, and nowhere else.
look_for_the_token() {
    local place
    while read -r place; do
        note leaked "\"where\":$(jq --null-input --arg place "$place" '$place')"
    done < <(grep --recursive --files-with-matches --fixed-strings "${tokens[@]/#/--regexp=}" "$folder" "$XDG_CONFIG_HOME" \
        "$XDG_CACHE_HOME" "$XDG_DATA_HOME" --exclude-dir=keyrings 2>/dev/null)
}

end_leg() {
    look_for_the_token
    note finished
}
