#pragma once

#include <map>
#include <string>
#include <vector>

#include "fp/link/IFpAdapter.h"

namespace fptest {

// An adapter with no link behind it. Each command is recorded as its operation
// byte followed by its payload; the response handlers are kept so that a test
// can play the link's read thread; requests get an empty answer.
struct FakeAdapter : FP::IFpAdapter {
    void SetResponseHandler(unsigned char op, Handler const& h) override { handlers[op] = h; }
    bool SendCommand(unsigned char op, Payload const& payload) override {
        const char* bytes = reinterpret_cast<const char*>(payload.Data());
        frames.push_back(static_cast<char>(op) + std::string(bytes, payload.Length()));
        return true;
    }
    Payload SendRequest(unsigned char, Payload const&) override { return {}; }
    Payload SendRequest(unsigned char, Payload const&, unsigned int) override { return {}; }

    // Hands bytes to the handler of op as the read thread would.
    void Deliver(unsigned char op, std::vector<unsigned char> const& bytes) {
        handlers[op](Payload(bytes.data(), bytes.size()));
    }
    std::vector<std::string> Take() { return std::move(frames); }

    std::map<unsigned char, Handler> handlers;
    std::vector<std::string> frames;
};

}  // namespace fptest
