// The proxy settings, where everybody reads them: in the controls of the proxy dialog.
#pragma once

namespace parlorwire {

struct Client;
struct ProxyControls;
class Winsock;

// The controls, loaded from config.ini the first time anything touches them.
ProxyControls& ProxyDialog(Client& client);

// Forgets the controls; the next use loads them again.
void UnloadProxyDialog(Client& client);

// Where a connection to the chat goes: to the proxy if one is used, else to the chat itself.
void ConnectToService(Client& client, Winsock& socket);

}  // namespace parlorwire
