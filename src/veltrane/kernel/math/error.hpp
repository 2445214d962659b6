// The exceptions of the modelling kernel.
#pragma once

#include <stdexcept>

namespace veltrane::kernel {

/// The kernel cannot build or compute what was asked. The message says why, in words for a user.
class KernelError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// An argument lies outside the domain of the operation (a placement that carries a scale, say).
class DomainError : public KernelError {
public:
    using KernelError::KernelError;
};

}  // namespace veltrane::kernel
