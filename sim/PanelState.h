#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>

#include "sim/PanelGrid.h"

namespace FPSIM {

// Where the emulator's time comes from: the owner (tests step it) or the clock.
enum Clock_e { TIME_MANUAL, TIME_REAL };

// What the emulator is built with; the answers can be changed later too.
struct PanelConfig_t {
    unsigned width = 20;
    unsigned height = 4;
    uint8_t slotId = 1;
    float voltage = 12.0f;
    uint8_t displayType = 1;
    std::string version = "fpsim 1.0";
    Clock_e clock = TIME_MANUAL;
};

// What the emulator has counted about its input.
struct PanelCounters_t {
    std::array<uint64_t, 256> framesByOp{};  // well-formed frames, by opcode
    uint64_t badFrames = 0;                  // empty, truncated, oversize or badly escaped frames
    uint64_t oversizeFrames = 0;
    uint64_t garbageBytes = 0;  // bytes outside any frame
    uint64_t unknownOps = 0;    // frames whose opcode the panel does not handle
    uint64_t badPayloads = 0;   // known opcode, payload of the wrong size or value
    uint64_t droppedChars = 0;  // text bytes that fell outside the grid
    uint64_t bytesIn = 0;       // every byte read from the link
    uint64_t reportsSent = 0;   // temperature and fan reports written
};

// A consistent copy of everything the panel shows and knows.
struct PanelState_t {
    PanelGrid grid;
    unsigned column = 0;
    unsigned row = 0;
    bool inverted = false;  // font used by the next text

    std::map<uint8_t, bool> leds;  // only LEDs the unit has set
    int unitStatus = -1;           // -1 until the unit sets them
    int brightness = -1;
    int fanState = -1;  // 1 on, 0 off

    bool subscribed = false;
    uint8_t interval = 0;  // tenths of a second
    uint8_t mask = 0;

    int16_t temperature = 0;  // the values reports will carry
    std::array<uint16_t, 3> fanSpeed{};
    // Values last put on the wire, with the emulator time (ms) they went out.
    int16_t lastTemperature = 0;
    std::array<uint16_t, 3> lastFanSpeed{};
    uint64_t lastReportMs = 0;

    bool started = false;
    bool linkUp = false;
    uint64_t nowMs = 0;
    PanelCounters_t counters;
};

}  // namespace FPSIM
