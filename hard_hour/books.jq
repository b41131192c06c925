# The figures of a hard hour, and what of them is a failure.
def ofKind($kind): [$acts[] | select(.kind == $kind)];
def median: sort | .[length / 2 | floor];

# How often the service received an answer to each ask, and how often it cut that connection.
([$requests[0].data[] | select(.method == "POST") | . + (.path | capture("/alerts/(?<n>[0-9]+)-[^/]*/answer$") // empty)]
    | map({key: .n, value: {count, cut}}) | from_entries) as $received
| ofKind("outage") as $outages
| (ofKind("looking")[0].t) as $looking
# What the window said about each ask, in the order of time; a line holds until the next one.
| [range($seen | length) as $i | $seen[$i] | .t as $t | ($seen[$i + 1].t // infinite) as $until
    | .rows | to_entries[] | {t: $t, until: $until, serial: .key, state: .value}] as $states
| ($states | group_by(.serial) | map({key: .[0].serial, value: .}) | from_entries) as $statesOf
| [($seen[] | select(.toast != null or .signIn) | .t), (ofKind("signing-in")[] | .t)] as $messages
| [range(1; $seen | length) as $i | $seen[$i] | select(.toast != null and .toast != $seen[$i - 1].toast) | .t] as $newMessages
# The last the service was known to hold: at the end, or just before the ask was removed.
| ([$acts[] | select(.kind == ("held", "tidied", "deleted"))] | group_by(.serial)
    | map({key: (.[0].serial | tostring), value: last}) | from_entries) as $holdings
| [ofKind("pressed") | group_by(.serial)[]
    | (.[0].serial | tostring) as $n | (last.t) as $pressed | ($statesOf[$n] // []) as $states
    | ($states | map(select(.until > $pressed + 45)) | last) as $last
    | {
        serial: $n,
        # Two keys are two answers where the first was refused before the second came.
        presses: (map(if .keys == 2 and (.t as $t | any($newMessages[]; . >= $t and . <= $t + 2)) then 2 else 1 end) | add),
        answers: map(.answer),
        held: $holdings[$n].answer,
        known: ($holdings | has($n)),
        atEnd: ($holdings[$n].kind == "held"),
        lastShown: ($last.state // "not seen again"),
        finalShown: (($states | last).state // "never seen"),
        received: ($received[$n].count // 0),
        cut: ($received[$n].cut // 0),
        nearOutage: any($outages[]; .t > $pressed - 90 and .t < $pressed + 30),
        # Shown as answered, then as waiting again, with nothing said in between.
        silent: any(range(1; $states | length) as $i | select($states[$i - 1].state == "answered"
            and $states[$i].state == "waiting") | [$states[$i - 1].t, $states[$i].t];
            . as [$from, $to] | any($messages[]; . >= $from - 3 and . <= $to + 3) | not)
    }] as $asks
# What it holds follows what the service holds, megabyte texts coming and going: ten minutes are compared with ten.
| [$memory[] | select(.minute >= 8 and .minute < 18) | .pss] as $early
| [$memory[] | select(.minute >= 18) | .pss] as $later
| ($later[-10:]) as $late
| {
    minutes: ($memory | length),
    alertsPosted: (ofKind("posted") | length),
    faults: (ofKind("fault") | group_by(.mode) | map({key: .[0].mode, value: length}) | from_entries),
    outages: ($outages | length),
    sessionsEnded: (ofKind("session-ended") | length),
    signedInAgain: (ofKind("signed-in") | length),
    marks: (ofKind("marked") | length),
    deletions: (ofKind("deleted") | length),
    asksAnswered: ($asks | length),
    presses: ($asks | map(.presses) | add),
    messagesSeen: ($messages | length),
    answersAtService: ($asks | map(select(.held != null)) | length),
    answersReceived: ($asks | map(.received) | add),
    pressedAgainAfterRefusal: ($asks | map(.presses - 1) | add),
    repeatedByHTTP: ($asks | map([.received - .presses, 0] | max) | add),
    removedBeforeTheEnd: ($asks | map(select(.known and (.atEnd | not))) | length),
    memoryInKilobytes: ($memory | map(.pss)),
    dashboardInKilobytes: ($memory | map((.held // 0) / 1000 | floor)),
    memoryMedian8To17: (if $early == [] then null else $early | median end),
    memoryMedianOfLastTen: (if $late == [] then null else $late | median end),
    memoryMaximum: ($memory | map(.pss) | max),
    exitStatus: (ofKind("ended")[0].status)
}
| .failures = ([
    ($asks[] | select(.known and .held == null and .lastShown == "answered")
        | {failure: "shown as answered, not at the service", ask: .}),
    ($asks[] | select(.known and .held != null and (.held as $held | .answers | index($held) | not))
        | {failure: "the service holds another answer", ask: .}),
    ($asks[] | select(.atEnd and .held != null and .finalShown == "waiting")
        | {failure: "at the service, shown as waiting at the end", ask: .}),
    ($asks[] | select(.silent) | {failure: "taken back without a message", ask: .}),
    ($asks[] | select(.received > .presses + .cut and (.nearOutage | not)) | {failure: "sent twice", ask: .}),
    (if ($late | length) == 10 and .memoryMedianOfLastTen > 1.15 * .memoryMedian8To17
        then {failure: "memory grew"} else empty end),
    (if $early != [] and .memoryMaximum > 1.5 * .memoryMedian8To17
        then {failure: "memory rose for a while"} else empty end),
    (if $looking and .exitStatus != 0 then {failure: "it did not end well"} else empty end),
    (if .exitStatus != null and $looking == null then {failure: "it died"} else empty end)
])
