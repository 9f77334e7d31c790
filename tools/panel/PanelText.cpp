#include "tools/panel/PanelText.h"

#include <cstdio>

namespace FPPANEL {

namespace {

std::string OrDash(int value) {
    return value < 0 ? "-" : std::to_string(value);
}

}  // namespace

std::vector<std::string> PanelText::Display(const FPSIM::PanelState_t& state, bool utf8) {
    const FPSIM::PanelGrid& grid = state.grid;
    const std::string border = "+" + std::string(grid.Width(), '-') + "+";
    std::vector<std::string> lines{border};
    for (unsigned row = 0; row < grid.Height(); ++row) {
        std::string line = "|" + grid.RenderPlain(row, utf8) + "|";
        const std::string mask = grid.ReverseMask(row);
        if (mask.find('#') != std::string::npos)
            line += "  " + mask;
        lines.push_back(line);
    }
    lines.push_back(border);
    return lines;
}

std::string PanelText::Leds(const FPSIM::PanelState_t& state) {
    std::string leds;
    for (const auto& led : state.leds)
        leds +=
            (leds.empty() ? "" : ", ") + std::to_string(led.first) + (led.second ? " on" : " off");
    return "LEDs: " + (leds.empty() ? std::string("-") : leds);
}

std::string PanelText::Status(const FPSIM::PanelState_t& state) {
    return "status: " + OrDash(state.unitStatus) + "  brightness: " + OrDash(state.brightness) +
           "  fan: " +
           (state.fanState < 0 ? "-"
            : state.fanState   ? "on"
                               : "off");
}

std::vector<std::string> PanelText::Indicators(const FPSIM::PanelState_t& state,
                                               const PanelInfo_t& info) {
    std::vector<std::string> lines;
    lines.push_back(std::string(info.connected ? "link: unit connected on "
                                               : "link: waiting for the unit on ") +
                    info.address);

    lines.push_back(Leds(state));
    lines.push_back(Status(state));

    if (state.subscribed) {
        char every[32];
        std::snprintf(every, sizeof every, "%u.%u s", state.interval / 10u, state.interval % 10u);
        std::string what;
        if (state.mask & 0x01)
            what += " temperature";
        for (unsigned fan = 0; fan < 3; ++fan)
            if (state.mask & (0x02 << fan))
                what += " fan" + std::to_string(fan + 1);
        lines.push_back(std::string("reports: every ") + every + ":" +
                        (what.empty() ? " nothing" : what));
    } else {
        lines.push_back("reports: off");
    }

    lines.push_back("temperature: " + std::to_string(state.temperature) +
                    "  fans: " + std::to_string(state.fanSpeed[0]) + " " +
                    std::to_string(state.fanSpeed[1]) + " " + std::to_string(state.fanSpeed[2]));

    char answers[64];
    std::snprintf(answers, sizeof answers, "slot %u, %.2f V, display type %u, version ",
                  unsigned(info.slotId), double(info.voltage), unsigned(info.displayType));
    lines.push_back(std::string("answers: ") + answers + "\"" + info.version + "\"");
    return lines;
}

std::string PanelText::Render(const FPSIM::PanelState_t& state, const PanelInfo_t& info,
                              bool utf8) {
    std::string out;
    for (const auto& line : Display(state, utf8))
        out += line + "\n";
    for (const auto& line : Indicators(state, info))
        out += line + "\n";
    return out;
}

}  // namespace FPPANEL
