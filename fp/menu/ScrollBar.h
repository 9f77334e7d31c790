#pragma once

namespace FP {

class Cursor;
class Display;

/// The two scroll arrows of a menu, in the last-but-one column: up on the
/// first list line when items lie above, down on the last line when items lie
/// below.
/// Threads: those of the menu that holds it.
/// Borrows: the cursor and the display (both must outlive it).
class ScrollBar {
public:
    /// Without cursor or display it draws nothing.
    ScrollBar();
    /// Draws for cursor into display; both borrowed.
    ScrollBar(Cursor* cursor, Display* display);

    /// The cursor whose scroll position decides which arrows show.
    void SetCursor(Cursor* c) { cursor = c; }
    /// The display the arrows go to.
    void SetDisplay(Display* d) { display = d; }
    /// Writes the arrows that apply into the display model.
    void DrawBar();

private:
    char downChar;
    char upChar;
    Cursor* cursor;
    Display* display;
};

}  // namespace FP
