#include <sys/resource.h>

#include <csignal>
#include <cstdio>
#include <exception>
#include <string>

#include "service/command_line.h"

namespace {

parlorwire::service::Server* running = nullptr;

void OnSignal(int) {
  running->Stop();
}

// As many connections as the system lets one process have.
void RaiseDescriptorLimit() {
  rlimit limit{};
  if (getrlimit(RLIMIT_NOFILE, &limit) != 0) return;
  limit.rlim_cur = limit.rlim_max;
  setrlimit(RLIMIT_NOFILE, &limit);
}

int Serve(const parlorwire::service::ServerOptions& options) {
  parlorwire::service::Server server(options);
  running = &server;
  struct sigaction action{};
  action.sa_handler = OnSignal;
  sigaction(SIGTERM, &action, nullptr);
  sigaction(SIGINT, &action, nullptr);
  std::printf("listening on %s:%u\n", options.address.c_str(), unsigned{server.port()});
  std::fflush(stdout);
  server.Run();
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace parlorwire::service;
  const auto line = ReadCommandLine({argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)});
  if (const auto* wrong = std::get_if<std::string>(&line)) {
    std::fprintf(stderr, "chat_service: %s (--help lists the options)\n", wrong->c_str());
    return 2;
  }
  const auto& [options, help] = std::get<CommandLine>(line);
  if (help) {
    std::fputs(std::string(HelpText()).c_str(), stdout);
    return 0;
  }
  RaiseDescriptorLimit();
  try {
    return Serve(options);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "chat_service: %s\n", failure.what());
    return 1;
  }
}
