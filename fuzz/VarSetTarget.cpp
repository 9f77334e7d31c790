// Variable-set requests against the embedded engine: variables whose names
// and instances run into each other, values written from the input, then a
// request built from the input. Every entry must resolve on its own exactly
// as it does inside the whole request, to a declared variable and instance
// whose value the engine reads back the same.
#include <string>
#include <vector>

#include "fuzz/FuzzInput.h"
#include "fuzz/FuzzTargets.h"
#include "tov/DataStore.h"
#include "tov/TovClient.h"

namespace fpfuzz {

namespace {

struct Var {
    const char* name;
    std::vector<std::string> instances;
};

const std::vector<Var>& Vars() {
    static const std::vector<Var> vars = {
        {"a", {"0", "1", "b"}},     {"ab", {"0", "c", "1"}}, {"abc", {"0"}},
        {"port", {"0", "1", "12"}}, {"port1", {"0", "2"}},   {"port12", {"3"}},
        {"x", {"0", "y", "y0"}},    {"x.y", {"0", "1"}},     {"n", {"0"}},
    };
    return vars;
}

TOV::CValidator Check(size_t var) {
    switch (var) {
        case 3:
            return TOV::CValidator::Integer(0, 65535);
        case 8:
            return TOV::CValidator::Real(-1.5, 1e6);
        case 2:
            return TOV::CValidator::Pattern("[a-z]*");
        default:
            return TOV::CValidator();
    }
}

std::string Entry(FuzzInput& in) {
    const auto& vars = Vars();
    switch (in.Below(4)) {
        case 0: {
            const Var& v = vars[in.Below(vars.size())];
            return v.name + v.instances[in.Below(v.instances.size())];
        }
        case 1:
            return vars[in.Below(vars.size())].name;
        case 2: {
            const Var& v = vars[in.Below(vars.size())];
            return v.name + in.Text(4);
        }
        default:
            return in.Text(12);
    }
}

bool Declared(const std::string& name, const std::string& instance) {
    for (const Var& v : Vars()) {
        if (name != v.name)
            continue;
        for (const std::string& i : v.instances) {
            if (i == instance)
                return true;
        }
    }
    return false;
}

// Checks one entry's own answer and returns it.
TOV::CRet CheckEntry(const TOV::CDataStore& store, const std::string& entry) {
    TOV::CParam request;
    request.AddParam(TOV::CParam(entry));
    TOV::CRet ret = store.Query(request);
    const TOV::CParam& out = ret.Val();
    if (!ret.Success()) {
        FUZZ_CHECK(out.Length() == 0 && !ret.Msg().empty());
        return ret;
    }
    FUZZ_CHECK(out.Length() == 1);
    const std::string name = out.GetKey(0);
    const TOV::CParam& instances = out[name];
    FUZZ_CHECK(instances.Length() >= 1);
    for (size_t i = 0; i < instances.Length(); ++i) {
        const std::string inst = instances.GetKey(i);
        FUZZ_CHECK(Declared(name, inst));
        FUZZ_CHECK(instances.Length() > 1 || entry == name + inst || entry == name);
        TOV::CRet read = store.Read(name, inst);
        FUZZ_CHECK(read.Success() && read.Val().GetValue() == instances[i].GetValue());
    }
    // A split into name + instance wins over a bare name, the longest name
    // first, so no longer split may exist (none at all for a bare name).
    for (size_t len = entry == name ? 1 : name.size() + 1; len < entry.size(); ++len)
        FUZZ_CHECK(!Declared(entry.substr(0, len), entry.substr(len)));
    return ret;
}

}  // namespace

int VarSets(const uint8_t* data, size_t size) {
    FuzzInput in(data, size);
    TOV::CDataStore store;
    const auto& vars = Vars();
    for (size_t i = 0; i < vars.size(); ++i) {
        FUZZ_CHECK(store
                       .Declare(TOV::CVarDecl(vars[i].name)
                                    .Instances(vars[i].instances)
                                    .Default(i == 3 || i == 8 ? "1" : "d")
                                    .Check(Check(i)))
                       .Success());
    }
    TOV::CTovClient client(store, TOV::CTovClient::DELIVER_QUEUED);

    for (unsigned writes = in.Below(8); writes > 0; --writes) {
        const Var& v = vars[in.Below(vars.size())];
        const std::string inst =
            in.Below(8) ? v.instances[in.Below(v.instances.size())] : in.Text(4);
        const std::string value = in.Text(16);
        TOV::CRet ret = client.SendOp("fuzz", v.name, inst, value);
        if (ret.Success())
            FUZZ_CHECK(store.Read(v.name, inst).Val().GetValue() == value);
    }

    TOV::CParam request;
    std::vector<std::string> entries(in.Below(6));
    for (std::string& e : entries) {
        e = Entry(in);
        request.AddParam(TOV::CParam(e));
    }
    const std::string filter = in.Text(8);

    TOV::CRet all = client.GetVars("fuzz", request);
    TOV::CRet byValue = client.GetVarsByValue("fuzz", request, filter);
    const TOV::CParam& allVal = all.Val();
    const TOV::CParam& byValueVal = byValue.Val();
    bool allResolve = true;
    for (const std::string& e : entries) {
        TOV::CRet one = CheckEntry(store, e);
        allResolve = allResolve && one.Success();
        // What the entry answers alone, the whole request answers too.
        const TOV::CParam& got = one.Val();
        for (size_t n = 0; n < got.Length(); ++n) {
            const std::string name = got.GetKey(n);
            for (size_t i = 0; i < got[name].Length(); ++i) {
                const std::string inst = got[name].GetKey(i);
                const std::string& value = got[name][i].GetValue();
                FUZZ_CHECK(allVal[name][inst] == got[name][i]);
                FUZZ_CHECK(byValueVal[name].Has(inst) == (value == filter));
            }
        }
    }
    FUZZ_CHECK(all.Success() == allResolve);
    FUZZ_CHECK(byValue.Success() == allResolve);
    return 0;
}

}  // namespace fpfuzz
