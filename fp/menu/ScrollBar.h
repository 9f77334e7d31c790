#pragma once

namespace FP {

class Cursor;
class Display;

// The two scroll arrows of a menu, in the last-but-one column: up on the
// first list line when items lie above, down on the last line when items lie
// below.
class ScrollBar {
public:
    ScrollBar();
    ScrollBar(Cursor* cursor, Display* display);

    void SetCursor(Cursor* c) { cursor = c; }
    void SetDisplay(Display* d) { display = d; }
    void DrawBar();

private:
    char downChar;
    char upChar;
    Cursor* cursor;
    Display* display;
};

}  // namespace FP
