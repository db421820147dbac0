// Starts a private PulseAudio daemon, and other programs.
#pragma once

#include <QProcess>

#include <string>
#include <vector>

namespace listening {

inline void run(QProcess& process, const char* program, const std::vector<std::string>& arguments) {
    QStringList list;
    for (const std::string& argument : arguments)
        list << QString::fromStdString(argument);
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(QString::fromLocal8Bit(program), list);
    process.waitForStarted();
}

// From now on, the only sound server that programs find is the one in this folder.
inline void liveIn(const std::string& folder) {
    for (const char* name : {"HOME", "XDG_CONFIG_HOME", "PULSE_RUNTIME_PATH", "PULSE_STATE_PATH"})
        qputenv(name, folder.c_str());
    qputenv("PULSE_SERVER", ("unix:" + folder + "/socket").c_str());
}

// Starts the sound server of this folder with null sinks; each entry is a name, optionally with a format.
inline void runPulse(QProcess& daemon, const std::string& folder, const std::vector<std::string>& sinks) {
    std::vector<std::string> arguments{"-n",
                                       "--daemonize=no",
                                       "--use-pid-file=no",
                                       "--exit-idle-time=-1",
                                       "-L",
                                       "module-native-protocol-unix auth-anonymous=1 socket=" + folder +
                                           "/socket"};
    for (const std::string& sink : sinks)
        arguments.insert(arguments.end(), {"-L", "module-null-sink norewinds=1 sink_name=" + sink});
    run(daemon, PULSEAUDIO, arguments);
}

} // namespace listening
