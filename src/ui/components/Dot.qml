import Pingwell

/** A small round mark. A picture: at scales like 125 % a rectangle this small gets square corners. */
Symbol {
    name: "circle.fill"
    size: 6
}
