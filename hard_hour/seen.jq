# What matters of a snapshot: the messages, and what the rows and the open alert say about answers.
def serial: capture("^alert[.]row[.](?<n>[0-9]+)-").n;
def named($id): first(.[] | select(.id == $id) | .name) // null;
{
    toast: named("toast"),
    signIn: any(.[]; .id == "signin.title"),
    rows: ([.[] | select((.id | test("^alert[.]row[.][0-9]+-")) and (.id | test("[.](toggleRead|delete)$") | not))
        | {
            key: (.id | serial),
            value: (if (.name | test("You replied “")) then "answered" elif (.name | test("Needs reply")) then "waiting"
                else "other" end)
        }] | from_entries)
}
