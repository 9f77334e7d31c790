#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>

#include "sim/PanelGrid.h"

namespace FPSIM {

/// Where the emulator's time comes from: the owner (tests step it) or the clock.
enum Clock_e { TIME_MANUAL, TIME_REAL };

/// What the emulator is built with; the answers can be changed later too.
struct PanelConfig_t {
    unsigned width = 20;                ///< grid columns
    unsigned height = 4;                ///< grid rows
    uint8_t slotId = 1;                 ///< answer to the slot query
    float voltage = 12.0f;              ///< answer to the supply voltage query
    uint8_t displayType = 1;            ///< answer to the display type query
    std::string version = "fpsim 1.0";  ///< answer to the firmware version query
    Clock_e clock = TIME_MANUAL;        ///< fixed for the emulator's lifetime
};

/// What the emulator has counted about its input.
struct PanelCounters_t {
    std::array<uint64_t, 256> framesByOp{};  ///< well-formed frames, by opcode
    uint64_t badFrames = 0;                  ///< empty, truncated, oversize or badly escaped frames
    uint64_t oversizeFrames = 0;             ///< those of badFrames that were too long
    uint64_t garbageBytes = 0;               ///< bytes outside any frame
    uint64_t unknownOps = 0;                 ///< frames whose opcode the panel does not handle
    uint64_t badPayloads = 0;                ///< known opcode, payload of the wrong size or value
    uint64_t droppedChars = 0;               ///< text bytes that fell outside the grid
    uint64_t bytesIn = 0;                    ///< every byte read from the link
    uint64_t reportsSent = 0;                ///< temperature and fan reports written
};

/// A consistent copy of everything the panel shows and knows.
struct PanelState_t {
    PanelGrid grid;         ///< the characters on show
    unsigned column = 0;    ///< where the next text goes
    unsigned row = 0;       ///< where the next text goes
    bool inverted = false;  ///< font used by the next text

    std::map<uint8_t, bool> leds;  ///< only LEDs the unit has set
    int unitStatus = -1;           ///< -1 until the unit sets them
    int brightness = -1;           ///< -1 until the unit sets it
    int fanState = -1;             ///< 1 on, 0 off

    bool subscribed = false;  ///< the unit asked for periodic reports
    uint8_t interval = 0;     ///< tenths of a second
    uint8_t mask = 0;         ///< which reports the unit asked for

    int16_t temperature = 0;             ///< the values reports will carry
    std::array<uint16_t, 3> fanSpeed{};  ///< by fan, 0..2
    /// Values last put on the wire, with the emulator time (ms) they went out.
    ///@{
    int16_t lastTemperature = 0;
    std::array<uint16_t, 3> lastFanSpeed{};
    uint64_t lastReportMs = 0;
    ///@}

    bool started = false;      ///< Start() has sent the start-up message
    bool linkUp = false;       ///< false once the link has closed or failed
    uint64_t nowMs = 0;        ///< emulator time of this copy
    PanelCounters_t counters;  ///< what was counted about the input
};

}  // namespace FPSIM
