# shellcheck shell=bash
# The program against the stand-in service, for scripts that are run as SCRIPT PINGWELL DEVSERVER [PICTURES] in a private
# desktop and source this.

program=$1 service=$2 pictures=${3:-}
source "$(dirname "${BASH_SOURCE[0]}")/../../tools/desktop/window.sh"

token="token-of-the-tests"
port=0
processes=()
scratch=$(mktemp -d)
trap 'kill "${processes[@]}" 2>/dev/null || true; wait; rm -rf "$scratch"' EXIT
trap 'exit 130' INT TERM

announced() { grep -q 'listening on' "$scratch/service.log"; }

# Sets `address`, which stays the same when the service is started once more.
start_service() {
    : >"$scratch/service.log"
    "$service" --port "$port" --token "$token" >"$scratch/service.log" &
    service_process=$!
    processes+=("$service_process")
    eventually 10 "the stand-in service listens" announced
    port=$(grep -o '[0-9]*$' "$scratch/service.log")
    address=http://127.0.0.1:$port
}

# As a person starts it; with -uitest-live nothing outlives it, and the bus tells what its windows show.
start_program() {
    "$program" -apiBaseURL "$address" "$@" >>"$scratch/program.log" 2>&1 &
    program_process=$!
    processes+=("$program_process")
}

keep_token() { printf %s "$token" | secret-tool store --label=Pingwell service com.pingwell.mac.session account session; }
token_is_gone() { [[ -z $(secret-tool lookup service com.pingwell.mac.session account session) ]]; }
answered_at_service() { [[ $(curl -fsS "$address/agent/alerts/$1" | jq -r .data.answer) == "$2" ]]; }
