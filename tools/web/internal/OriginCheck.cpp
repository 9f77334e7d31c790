#include "tools/web/internal/OriginCheck.h"

#include <strings.h>

#include "tools/web/WebOptions.h"

namespace FPWEB {

bool OriginCheck::LoopbackHost(const std::string& host) {
    if (host.compare(0, 5, "[::1]") == 0)
        return host.size() == 5 || host[5] == ':';
    const std::string name = host.substr(0, host.rfind(':'));
    return strcasecmp(name.c_str(), "localhost") == 0 || WebOptions::IsLoopback(name);
}

bool OriginCheck::Allowed(const std::string& host, const std::string& origin, bool loopbackBind) {
    if (host.empty())
        return false;
    if (loopbackBind && !LoopbackHost(host))
        return false;
    return origin.empty() || strcasecmp(origin.c_str(), ("http://" + host).c_str()) == 0;
}

}  // namespace FPWEB
