// Reads a document from an https address.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

#include "platform/system/Progress.h"

namespace tevra {

struct HttpsLimits {
  std::chrono::milliseconds time{10'000};  ///< for everything, redirects included
  std::size_t bytes = 16 * 1024 * 1024;    ///< of the document
};

/// Throws Failure 5 with a message for the user unless the address has the form https://host/..
void RequireHttps(const std::string& address);

/// The document at an address. Follows redirects to other https addresses only; the certificate
/// must be valid for the host by Qt's default configuration. `progress` is called about every 50 ms
/// with the bytes so far, and only it lets the user's input through.
///
/// Throws Failure 5 like RequireHttps, 57 with a message for the user when there is no
/// document, it is larger or takes longer than the limits; GivenUp when `progress` cancels. Needs
/// a QCoreApplication.
std::string HttpsGet(const std::string& address, const HttpsLimits& limits,
                     const Progress& progress = {});

}  // namespace tevra
