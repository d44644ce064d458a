// Scripts of operator actions for the workbench's scripted mode: one action a line, controls named
// by their id, as a person would work the page.
//
//   slider 8123 20        move a slider (trackbar) to a position; the page hears it as a scroll
//   click 8025            press a button or toggle a check box
//   check 8021 on         make a check box checked (on) or clear (off), clicking only if needed
//   combo 8572 3          pick a combo box item by index ...
//   combo 8572 "35ns"     ... or by its exact text
//   edit 1040 200         type into an edit the way an operator does: focus in, text, focus out
//   edit 8543 ""          (quotes keep spaces or an empty text)
//   reread                send the page 0x0903, the host's "read the chip again"
//   poke regData 9 0e     change chip bytes on the host side (offset, then hexadecimal bytes),
//                         as a screen would; follow with reread to show them
//
// '#' starts a comment outside quotes. In a --do argument ';' also separates actions.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

enum class ScriptActionKind { Slider, Click, Check, Combo, Edit, Reread, Poke };

struct ScriptAction {
    ScriptActionKind kind;
    int controlId = 0;
    int value = 0;     // slider position; combo index (-1: by text); check state (1 on, 0 off); poke offset
    std::string text;  // edit text or combo item text, UTF-8
    std::string image; // poke: which register image
    std::vector<std::uint8_t> bytes; // poke
    std::string where;               // "demo.txt line 3", "--do action 2": for messages while it runs
    std::string written;             // the action as written, without comment
};

struct ScriptError {
    std::string where;
    std::string reason;
    std::string ToString() const { return where + ": " + reason; }
};

struct ParsedScript {
    std::vector<ScriptAction> actions;
    std::optional<ScriptError> error; // the first bad line; actions is then empty
};

// sourceName names the script in messages ("demo.txt"); with semicolons, ';' separates actions too
// and they are counted as actions rather than lines.
ParsedScript ParseScript(std::string_view text, std::string_view sourceName, bool semicolonsSeparate = false);
