#include "session/exchange.h"

#include "session/http_answer.h"
#include "session/http_request.h"
#include "session/proxy_dialog.h"

namespace parlorwire {

void ConnectAfresh(Client& client, Winsock& socket) {
  socket.Close();
  ConnectToService(client, socket);
}

void SendRequest(Client& client, Winsock& socket, std::string_view url) {
  socket.SendData(BuildRequest(client, url));
}

void GatherAnswer(Winsock& socket, std::size_t bytes_total, Text& answer) {
  if (bytes_total > 0) TakeAnswer(answer, socket.GetData());
}

}  // namespace parlorwire
