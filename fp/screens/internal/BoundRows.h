#pragma once

#include <string>
#include <utility>

#include "fp/core/Names.h"
#include "fp/lines/ListLine.h"
#include "fp/screens/BaseEventScreen.h"
#include "fp/screens/FpClient.h"
#include "tov/Param.h"

namespace FP {

// What the status and configuration screens do alike with rows bound to
// engine variables: collect one request entry per bound row, read them all
// in one call, walk the answer's (name, instance) pairs to watch or unwatch
// each, and build list rows. Static only: the request and the values stay
// members of each screen, where derived screens already reach them.
// Header-only so that it needs no build entry of its own.
class BoundRows {
public:
    BoundRows() = delete;

    // The engine expects the name and the instance run together, no separator.
    static void AddRequest(TOV::CParam& request, const std::string& dbName,
                           const std::string& dbInstance) {
        TOV::CParam entry;
        entry.Clear(0);
        entry.Assign(dbName + dbInstance);
        request.AddParam(entry);
    }

    // Without a client the previous values stay, so a screen that was never
    // wired registers nothing.
    static void Read(FpClient* client, const TOV::CParam& request, TOV::CParam& values) {
        if (client)
            values = client->GetVars(FPUSER, request).Val();
    }

    // fn(name, instance) for every instance of every name, in the engine's
    // order; registration and its undoing must visit the same pairs.
    template <class Fn>
    static void ForEachPair(const TOV::CParam& values, Fn&& fn) {
        for (size_t i = 0; i < values.Length(); ++i) {
            const std::string name = values.GetKey(i);
            const TOV::CParam& instances = values[name];
            for (size_t j = 0; j < instances.Length(); ++j)
                fn(name, instances.GetKey(j));
        }
    }

    // Both kinds watch and unwatch without going through overrides of
    // Add/RemoveEventHandler, hence the qualified calls.
    static void Watch(BaseEventScreen& screen, const TOV::CParam& values) {
        ForEachPair(values, [&screen](const std::string& name, const std::string& instance) {
            screen.BaseEventScreen::AddEventHandler(name, instance);
        });
    }
    static void Unwatch(BaseEventScreen& screen, const TOV::CParam& values) {
        ForEachPair(values, [&screen](const std::string& name, const std::string& instance) {
            screen.BaseEventScreen::RemoveEventHandler(name, instance);
        });
    }

    // args pick the constructor of Line (a ListLine or a kind of it); every
    // list factory sets the suffix.
    template <class Line = ListLine, class... Args>
    static Line* NewListLine(const std::string& suffix, Args&&... args) {
        auto* line = new Line(std::forward<Args>(args)...);
        line->SetSuffix(suffix);
        return line;
    }
};

}  // namespace FP
