import Pingwell

/** Marks an ask that nobody answered in time. */
Tag {
    text: "TIMED OUT"
    ink: Theme.timedOut
    color: Theme.warningFill
}
