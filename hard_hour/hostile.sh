# shellcheck shell=bash
# Alerts as an agent that means no good, or knows no better, would post them. Each carries its number in identifier and
# title, so that it is known again whatever surrounds it.

# shellcheck disable=SC2034,SC2016 # Picked from by name; and the dollar signs are meant for jq and for the reader.
# JSON texts: what else identifiers and texts are made of.
hostile_ids=('"plain"' '"with space"' '"a/b/../c"' '"?x=1&y=2#z"' '"%2F%00"' '"q\"uo\\te"' '"\u202ertl\u202c"' '"\ud83d\ude00\u00e9"'
    '"<b>bold</b>"' '"alert.row.1"' '("long" * 300)' '"semi;colon,comma"')
hostile_texts=('"Deploy?"' '"<b>bold</b> <img src=\"file:///etc/passwd\"> <a href=\"http://example.com\">x</a>"'
    '"\u202ereversed\u202c \u2066isolated\u2069 \u200emarks\u200f"' '"zalgo \u1e91\u0338\u032c\u0313\u0313\u034c text"' '"\u0001\u0007\u001b[31mcontrol\u007f"'
    '"line one\nline two\r\nline three\ttab"' '("unbroken" * 200)' '"%1 %2 %n {0} ${x} $(id)"' '"&lt;script&gt; &amp;"'
    '"\ud83d\udc69\u200d\ud83d\udc69\u200d\ud83d\udc67\u200d\ud83d\udc66\ud83c\udff3\ufe0f\u200d\ud83c\udf08"' '"\ufeff\u200b\u2028\u2029invisible"' '"\u0645\u0631\u062d\u0628\u0627 \u05e9\u05dc\u05d5\u05dd"')

random_of() {
    local -n choices=$1
    printf '%s' "${choices[RANDOM % ${#choices[@]}]}"
}

# hostile_alert NUMBER WORKSPACE: the alert as JSON.
hostile_alert() {
    local id title body app actions='null' form=$((RANDOM % 10))
    id=$(random_of hostile_ids)
    title=$(random_of hostile_texts)
    body=$(random_of hostile_texts)
    app=$(random_of hostile_texts)
    ((RANDOM % 25 == 0)) && body='("One line of a megabyte, <i>and</i> then the next.\n" * 20000)'
    ((form < 5)) && actions="[range(1; $((RANDOM % 4 + 2))) | \"$1 choice \\(.)\"]"
    jq --null-input "{id: (\"$1-\" + $id), title: (\"#$1 \" + $title), body: $body, app: ($app | .[:200]),
        workspaceId: \"$2\", expiresInMinutes: 600}
        + (if $form < 5 then {actions: $actions} elif $form < 7 then {answerType: \"text\"} else {} end)"
}
