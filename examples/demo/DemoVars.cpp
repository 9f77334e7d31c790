#include "examples/demo/DemoVars.h"

#include <arpa/inet.h>

#include <ctime>

#include "fp/lines/EngineClockLines.h"

namespace FPDEMO {

namespace {

const char kQuad[] =
    "((25[0-5]|2[0-4][0-9]|1[0-9][0-9]|[1-9]?[0-9])\\.){3}"
    "(25[0-5]|2[0-4][0-9]|1[0-9][0-9]|[1-9]?[0-9])";

std::string Now(const char* format) {
    const std::time_t t = std::time(nullptr);
    std::tm tm{};
    localtime_r(&t, &tm);
    char text[32];
    std::strftime(text, sizeof text, format, &tm);
    return text;
}

// A validator's check from a yes/no test and the reason given for no.
TOV::CValidator::Function Accept(bool (*test)(const std::string&), const char* reason) {
    return TOV::CValidator::Function(
        [test, reason](const std::string& value) { return test(value) ? std::string() : reason; });
}

bool Quad(const std::string& text, uint32_t& out) {
    in_addr a{};
    if (inet_pton(AF_INET, text.c_str(), &a) != 1)
        return false;
    out = ntohl(a.s_addr);
    return true;
}

}  // namespace

bool InSubnet(const std::string& address, const std::string& netmask, const std::string& gateway) {
    uint32_t a = 0, m = 0, g = 0;
    if (!Quad(address, a) || !Quad(netmask, m) || !Quad(gateway, g))
        return false;
    return (a & m) == (g & m) && g != a;
}

bool DeclareVars(TOV::CDataStore& store, std::string& error) {
    using TOV::CValidator;
    using TOV::CVarDecl;
    const CValidator quad = CValidator::Pattern(kQuad);
    const CVarDecl vars[] = {
        // Readings: refreshed from the panel on every connection.
        CVarDecl(Var::kTemperature).Default("0").Check(CValidator::Integer(-128, 127)),
        CVarDecl(Var::kFan1).Default("0").Check(CValidator::Integer(0, 65535)),
        CVarDecl(Var::kFan2).Default("0").Check(CValidator::Integer(0, 65535)),
        CVarDecl(Var::kFan3).Default("0").Check(CValidator::Integer(0, 65535)),
        CVarDecl(Var::kSlotVoltage).Default("0.0"),
        CVarDecl(Var::kSlotId).Default("-"),
        CVarDecl(Var::kPanelVersion).Default("-"),
        CVarDecl(Var::kUnitVersion).Default("fp-demo " FP_VERSION),
        // Settings.
        CVarDecl(Var::kDhcp).Default("0").Check(CValidator::Integer(0, 1)).Persistent(),
        CVarDecl(Var::kIpAddress).Default("192.168.1.10").Check(quad).Persistent(),
        CVarDecl(Var::kNetmask).Default("255.255.255.0").Check(quad).Persistent(),
        CVarDecl(Var::kGateway).Default("192.168.1.1").Check(quad).Persistent(),
        CVarDecl(Var::kHostName)
            .Default("fp-demo")
            .Check(CValidator::Pattern("[A-Za-z0-9]([A-Za-z0-9-]{0,14}[A-Za-z0-9])?"))
            .Persistent(),
        CVarDecl(Var::kMac).Default("02:00:5E:10:00:01"),
        CVarDecl(Var::kBrightness).Default("5").Check(CValidator::Integer(1, 8)).Persistent(),
        // The demo has no clock of its own to set: these start at the host's time.
        CVarDecl(Var::kDate)
            .Default(Now("%Y/%m/%d"))
            .Check(CValidator::Custom(Accept(&FP::EngineDateLine::Accepts, "no such date"))),
        CVarDecl(Var::kTime)
            .Default(Now("%H:%M:%S"))
            .Check(CValidator::Custom(Accept(&FP::EngineTimeLine::Accepts, "no such time"))),
    };
    for (const CVarDecl& decl : vars) {
        const TOV::CRet ret = store.Declare(decl);
        if (!ret.Success()) {
            error = decl.GetName() + ": " + ret.Msg();
            return false;
        }
    }
    return true;
}

}  // namespace FPDEMO
