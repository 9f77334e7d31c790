// Stands in for the web server in a build without CivetWeb, so the programs
// link the same either way and --web explains itself.
#include "tools/web/WebFrontEnd.h"

#include "tools/panel/internal/ToolSupport.h"

namespace FPWEB {

struct WebFrontEnd::Client {};

WebFrontEnd::WebFrontEnd(FPPANEL::PanelView& panel, const WebOptions_t& options)
    : panel_(panel), options_(options), loopback_(WebOptions::IsLoopback(options.host)) {}

WebFrontEnd::~WebFrontEnd() = default;

bool WebFrontEnd::Start(std::string& error) {
    return FPPANEL::Fail(error,
                         "this build has no web view (it was built without libcivetweb-dev)");
}

void WebFrontEnd::Stop() {}

unsigned WebFrontEnd::Clients() const {
    return 0;
}

}  // namespace FPWEB
