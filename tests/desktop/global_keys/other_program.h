#pragma once

#include <QProcess>
#include <initializer_list>
#include <string>

struct xcb_connection_t;

// A private X server; from now on, the one of this process.
struct PrivateServer {
    explicit PrivateServer(const QStringList& options = {});
    ~PrivateServer();
    QProcess server;
};

// Another program, with the keyboard in its window; and the keyboard of the user.
class OtherProgram {
public:
    OtherProgram();
    ~OtherProgram();

    // What was typed into the window so far, by the layout as it is when each key arrives.
    std::u32string& typed();
    // The user presses or releases X key codes, or presses a key with others held.
    void press(std::initializer_list<int> codes, bool down) const;
    void tap(std::initializer_list<int> held, int key) const;

private:
    xcb_connection_t* x_;
    unsigned window_;
    std::u32string typed_;
};
