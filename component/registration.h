#pragma once

/// The component's entries in the registry, for all users of the machine or for the current one: all classes and
/// interfaces that the type library names. Written by hand throughout, since the system's own routine knows no user.
namespace fiscalon::component {

enum class Audience { Machine, User };

/// Writes the entries; what was written goes again where one of them cannot be. Throws ComponentError with the key, the
/// system's reason and the remedy.
void Register(Audience audience);

/// Takes all of them away, and the folders that they leave empty. Nothing to take away is no error. What the component
/// of the other word size shares with this one stays as long as that one is registered.
void Unregister(Audience audience);

}  // namespace fiscalon::component
