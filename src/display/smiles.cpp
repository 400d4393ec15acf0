#include "display/smiles.h"

#include "session/client.h"
#include "session/fault_trap.h"
#include "text/number.h"

namespace parlorwire {
namespace {

constexpr int kSmileCountId = 101;  // the pictures and their names follow it
constexpr int kBufferSize = 256;

void ReadSmileTable(Client& client) {
  AppState& app = client.app;
  LoadResourceLibrary(app.resources, client.platform, "smiles.dll");
  if (!app.resources.library) return;
  app.SmileCount = ToInteger(LoadResourceString(app.resources, kSmileCountId, kBufferSize));
  for (int j = 1; j <= app.SmileCount; ++j)
    app.SmileTable += "\r\n" + LoadResourceString(app.resources, kSmileCountId + j, kBufferSize);
}

}  // namespace

void LoadSmiles(Client& client) {
  client.app.SmileTable.clear();
  client.app.SmileCount = 0;
  GoOnAfterFault(client, ". Function: LoadSmiles", [&] { ReadSmileTable(client); });
}

}  // namespace parlorwire
