#include "tools/panel/PanelSnapshot.h"

#include <fstream>

#include "sim/PanelPicture.h"
#include "tools/panel/PanelText.h"
#include "tools/panel/internal/ToolSupport.h"

namespace FPPANEL {

namespace {

struct Format_t {
    const char* extension;
    std::string (*render)(const FPSIM::PanelState_t& state, bool utf8);
};

// Pictures look the same whatever the terminal can show.
std::string Svg(const FPSIM::PanelState_t& state, bool) {
    return FPSIM::PanelPicture::Svg(state);
}
std::string Png(const FPSIM::PanelState_t& state, bool) {
    return FPSIM::PanelPicture::Png(state);
}

const Format_t kFormats[] = {
    {".txt", &PanelSnapshot::Text},
    {".svg", &Svg},
    {".png", &Png},
};

bool EndsWith(const std::string& s, const std::string& end) {
    return s.size() >= end.size() && s.compare(s.size() - end.size(), end.size(), end) == 0;
}

}  // namespace

std::string PanelSnapshot::Text(const FPSIM::PanelState_t& state, bool utf8) {
    std::string out;
    for (const std::string& line : PanelText::Display(state, utf8))
        out += line + "\n";
    out += PanelText::Leds(state) + "\n" + PanelText::Status(state) + "\n";
    return out;
}

bool PanelSnapshot::Save(const std::string& path, const FPSIM::PanelState_t& state, bool utf8,
                         std::string& error) {
    std::string known;
    for (const Format_t& format : kFormats) {
        known += std::string(known.empty() ? "" : ", ") + format.extension;
        if (!EndsWith(path, format.extension))
            continue;
        std::ofstream file(path, std::ios::binary | std::ios::trunc);
        file << format.render(state, utf8);
        file.close();
        if (!file)
            return Fail(error, "cannot write " + path);
        return true;
    }
    return Fail(error, "no snapshot format for '" + path + "' (known: " + known + ")");
}

}  // namespace FPPANEL
