#include "tools/web/internal/WebSession.h"

#include "fp/input/KeyTypes.h"
#include "tools/panel/KeyMap.h"
#include "tools/web/internal/BrowserKeys.h"

namespace FPWEB {

namespace {

// Keeps log lines readable whatever a client sent.
std::string Printable(const std::string& text) {
    std::string out;
    for (char c : text.substr(0, 24))
        out += (c >= 0x20 && c < 0x7F) ? c : '?';
    return out;
}

}  // namespace

WebSession::WebSession(const std::string& token, unsigned releaseMs, const Limits_t& limits)
    : token_(token),
      limits_(limits),
      tracker_(releaseMs),
      authorized_(token.empty()),
      budget_(limits.burst) {}

bool WebSession::TakeBudget(uint64_t nowMs) {
    if (!budgetStarted_ || nowMs < budgetMs_) {
        budgetStarted_ = true;
        budgetMs_ = nowMs;
    }
    budget_ += double(nowMs - budgetMs_) * limits_.perSecond / 1000.0;
    if (budget_ > limits_.burst)
        budget_ = limits_.burst;
    budgetMs_ = nowMs;
    if (budget_ < 1.0)
        return false;
    budget_ -= 1.0;
    return true;
}

void WebSession::Drop(Outcome_t& out, const std::string& why, uint64_t nowMs) {
    if (logged_ && nowMs >= lastLogMs_ && nowMs - lastLogMs_ < limits_.logEveryMs) {
        ++unlogged_;
        return;
    }
    out.log = "web: dropped " + why;
    if (unlogged_)
        out.log += " (and " + std::to_string(unlogged_) + " more since the last note)";
    logged_ = true;
    lastLogMs_ = nowMs;
    unlogged_ = 0;
}

bool WebSession::TokenMatches(const std::string& offered) const {
    // Compares every byte whatever the first difference, so timing tells nothing.
    unsigned char diff = offered.size() == token_.size() ? 0 : 1;
    for (size_t i = 0; i < token_.size(); ++i)
        diff |= static_cast<unsigned char>(token_[i] ^ (i < offered.size() ? offered[i] : 0));
    return diff == 0;
}

WebSession::Outcome_t WebSession::OnUnusable(const std::string& what, uint64_t nowMs) {
    Outcome_t out;
    Drop(out, what, nowMs);
    return out;
}

WebSession::Outcome_t WebSession::OnText(const std::string& text, uint64_t nowMs) {
    Outcome_t out = Poll(nowMs);
    if (!TakeBudget(nowMs)) {
        Drop(out, "a message over the rate limit", nowMs);
        return out;
    }
    if (text.size() > limits_.maxMessage) {
        Drop(out, "an oversized message (" + std::to_string(text.size()) + " bytes)", nowMs);
        return out;
    }
    const size_t space = text.find(' ');
    const std::string verb = text.substr(0, space);
    const std::string arg = space == std::string::npos ? "" : text.substr(space + 1);
    if (arg.empty() || arg.find_first_of(" \t\r\n") != std::string::npos) {
        Drop(out, "a malformed message '" + Printable(text) + "'", nowMs);
        return out;
    }
    if (verb == "auth") {
        if (token_.empty() || authorized_)
            return out;
        if (TokenMatches(arg)) {
            authorized_ = true;
            out.accessChanged = true;
            out.log = "web: a browser gave the token and may press keys";
            return out;
        }
        if (++badTokens_ >= limits_.maxBadTokens) {
            out.log =
                "web: closing a connection after " + std::to_string(badTokens_) + " wrong tokens";
            out.close = true;
            return out;
        }
        Drop(out, "a wrong token", nowMs);
        return out;
    }
    if (verb == "key" || verb == "keyup" || verb == "pad" || verb == "padup") {
        Key(out, verb, arg, nowMs);
        return out;
    }
    Drop(out, "a message of unknown kind '" + Printable(verb) + "'", nowMs);
    return out;
}

void WebSession::Key(Outcome_t& out, const std::string& verb, const std::string& name,
                     uint64_t nowMs) {
    FPPANEL::KeyAction_t action;
    if (verb == "pad" || verb == "padup") {
        const int key = FPPANEL::KeyMap::FromName(name);
        if (key > 0) {
            action.action = FPPANEL::ACTION_PANEL_KEY;
            action.panelKey = key;
        }
    } else {
        action = BrowserKeys::FromKey(name);
    }
    if (action.action == FPPANEL::ACTION_NONE || action.action == FPPANEL::ACTION_QUIT) {
        Drop(out, "an unknown key '" + Printable(name) + "'", nowMs);
        return;
    }
    if (!authorized_) {
        Drop(out, "a key from a browser without the token", nowMs);
        return;
    }
    const bool up = verb == "keyup" || verb == "padup";
    switch (action.action) {
        case FPPANEL::ACTION_PANEL_KEY:
            if (up) {
                // Only the key that is held; a stray up must not release another.
                if (tracker_.HeldKey() == action.panelKey)
                    for (const auto& e : tracker_.ReleaseAll())
                        out.keys.push_back(e);
            } else {
                for (const auto& e : tracker_.OnKey(action.panelKey, nowMs))
                    out.keys.push_back(e);
            }
            break;
        case FPPANEL::ACTION_TEMP_UP:
        case FPPANEL::ACTION_TEMP_DOWN:
            if (!up)
                out.temperatureDelta = action.action == FPPANEL::ACTION_TEMP_UP ? 1 : -1;
            break;
        case FPPANEL::ACTION_FAN_UP:
        case FPPANEL::ACTION_FAN_DOWN:
            if (!up)
                out.fanDelta = action.action == FPPANEL::ACTION_FAN_UP ? 100 : -100;
            break;
        default:
            break;
    }
}

WebSession::Outcome_t WebSession::Poll(uint64_t nowMs) {
    Outcome_t out;
    out.keys = tracker_.Poll(nowMs);
    return out;
}

}  // namespace FPWEB
