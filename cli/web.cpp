// cordboard web: the forms of an exchange as pages for a browser of this machine.

#include <iostream>

#include "cli/Files.h"
#include "cli/Output.h"
#include "cli/Subcommands.h"
#include "web/Server.h"
#include "web/Site.h"

namespace cordboard::cli {

namespace {

// As it stands in an address: one of version 6 in brackets.
std::string HostOf(const std::string& address) {
  return address.find(':') == address.npos ? address : "[" + address + "]";
}

// Whoever reaches the port meets the token first; but what passes by on the way is told to all who listen there.
void WarnOfOthers(const std::string& address) {
  if (address.starts_with("127.") || address == "::1") return;
  Warning("others on the network can read what the page shows: it is not encrypted");
}

}  // namespace

int Web(const WebOptions& options) {
  if (ParseExchangeName(options.file).state)
    throw Exit{Usage, "the page shows an exchange as it is now: leave out the state; the page compares with it"};
  WarnOfReaders(*OpenToRead(options.file), options.file);
  WarnOfOthers(options.address);
  web::Visit visit(options.file, options.readOnly, options.wait);
  web::Server server(options.address, static_cast<unsigned short>(options.port));
  const std::string port = ":" + std::to_string(server.port());
  const std::string host = HostOf(options.address) + port;
  web::Gate gate({host, "localhost" + port});
  const bool readOnly = visit.readOnly();
  std::cout << "http://" << host << gate.Entrance() << std::endl;
  Note("page",
       std::string(readOnly ? "the exchange is only read" : "what is done there is kept at once; undo takes it back") +
           "; Ctrl-C ends this");
  const web::Site site(std::move(visit), std::move(gate));
  server.Run([&site](const web::Request& request) { return site.Serve(request); });
  return Done;
}

}  // namespace cordboard::cli
