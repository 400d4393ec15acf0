// What the end of a frame means, and the silence that comes before some ends.
#pragma once

namespace parlorwire {

struct Client;
struct TabSession;

// The frame's connection was closed by the server. Whether the tab connects again is read off what
// the client did or saw before.
void EndFrame(Client& client, int tab);

// Whether the user's wish keeps a tab without a frame from being connected again: he leaves, logs
// off or closes the tab, or has logged the nick off in another one, which is told.
bool EndsByWish(Client& client, int tab);

// The session is over: what it would have fetched or said behind a pause is not wanted any more.
void StopWaitingConnects(TabSession& session);

// The tick of Timer3, which runs only in silence: after two of them the tab connects again.
void Timer3_Timer(Client& client, int tab);

// The ticks of Timer6 and Timer26: lines that arrived earlier get no reaction and raise no
// balloon.
void Timer6_Timer(Client& client, int tab);
void Timer26_Timer(Client& client, int tab);

// The tick of Timer2: pers changes between red and its normal colour.
void Timer2_Timer(Client& client, int tab);

}  // namespace parlorwire
