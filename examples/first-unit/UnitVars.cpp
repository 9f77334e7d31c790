#include "UnitVars.h"

namespace FirstUnit {

std::vector<std::string> FanModeTexts() {
    return {"Auto", "Quiet", "Full"};
}

bool DeclareVars(TOV::CDataStore& store, std::string& error) {
    using TOV::CValidator;
    using TOV::CVarDecl;
    auto declare = [&](const CVarDecl& decl) {
        const TOV::CRet ret = store.Declare(decl);
        if (!ret.Success())
            error = decl.GetName() + ": " + ret.Msg();
        return ret.Success();
    };
    return declare(CVarDecl(Var::kName)
                       .Default("unit-1")
                       .Check(CValidator::Pattern("[A-Za-z0-9_-]{1,12}"))
                       .Persistent()) &&
           // The range matches FanModeTexts(): the engine refuses anything else.
           declare(
               CVarDecl(Var::kFanMode).Default("1").Check(CValidator::Integer(1, 3)).Persistent());
}

}  // namespace FirstUnit
