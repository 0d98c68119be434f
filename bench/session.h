// SPDX-License-Identifier: Apache-2.0
#ifndef VELRZM_BENCH_SESSION_H
#define VELRZM_BENCH_SESSION_H

#include <cstdlib>
#include <string>

#include <velrzm/velrzm.h>

namespace bench {

/** A user of the store, with the access log off. */
class Session {
public:
    explicit Session(const std::string& store) : connected_(connect(store)) {}
    ~Session() { QvExit(); }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    bool isConnected() const { return connected_; }

private:
    static bool connect(const std::string& store)
    {
        QvExit();
        ::setenv("QV_STORE", ("sqlite:" + store).c_str(), 1);
        return QvConnect("bench", "bench") == 1;
    }

    bool connected_;
};

} // namespace bench

#endif
