#include "tools/web/internal/StateJson.h"

#include <cstdio>

namespace FPWEB {

std::string StateJson::Quote(const std::string& text) {
    std::string out = "\"";
    for (unsigned char c : text) {
        if (c == '"' || c == '\\') {
            out += '\\';
            out += char(c);
        } else if (c < 0x20 || c == 0x7F) {
            char esc[8];
            std::snprintf(esc, sizeof esc, "\\u%04x", c);
            out += esc;
        } else {
            out += char(c);  // UTF-8 passes through untouched
        }
    }
    return out + "\"";
}

std::string StateJson::State(const FPSIM::PanelState_t& state, const FPPANEL::PanelInfo_t& info,
                             const std::string& title) {
    const FPSIM::PanelGrid& grid = state.grid;
    std::string rows, masks;
    for (unsigned row = 0; row < grid.Height(); ++row) {
        rows += (row ? "," : "") + Quote(grid.RenderPlain(row, true));
        masks += (row ? "," : "") + Quote(grid.ReverseMask(row));
    }
    std::string leds;
    for (const auto& led : state.leds)
        leds += (leds.empty() ? "[" : ",[") + std::to_string(led.first) + "," +
                (led.second ? "true" : "false") + "]";
    char voltage[32];
    std::snprintf(voltage, sizeof voltage, "%.2f", double(info.voltage));
    const std::string indicators = [&] {
        std::string out;
        for (const std::string& line : FPPANEL::PanelText::Indicators(state, info))
            out += (out.empty() ? "" : ",") + Quote(line);
        return out;
    }();
    return std::string("{\"type\":\"state\"") + ",\"title\":" + Quote(title) +
           ",\"width\":" + std::to_string(grid.Width()) +
           ",\"height\":" + std::to_string(grid.Height()) + ",\"rows\":[" + rows +
           "],\"reverse\":[" + masks + "],\"leds\":[" + leds + "]" +
           ",\"unitStatus\":" + std::to_string(state.unitStatus) +
           ",\"brightness\":" + std::to_string(state.brightness) +
           ",\"fanState\":" + std::to_string(state.fanState) +
           ",\"temperature\":" + std::to_string(state.temperature) + ",\"fans\":[" +
           std::to_string(state.fanSpeed[0]) + "," + std::to_string(state.fanSpeed[1]) + "," +
           std::to_string(state.fanSpeed[2]) + "]" +
           ",\"connected\":" + (info.connected ? "true" : "false") +
           ",\"address\":" + Quote(info.address) + ",\"version\":" + Quote(info.version) +
           ",\"slot\":" + std::to_string(info.slotId) + ",\"voltage\":" + voltage +
           ",\"indicators\":[" + indicators + "]}";
}

std::string StateJson::Access(bool mayPress, bool needsToken) {
    return std::string("{\"type\":\"access\",\"mayPress\":") + (mayPress ? "true" : "false") +
           ",\"needsToken\":" + (needsToken ? "true" : "false") + "}";
}

}  // namespace FPWEB
