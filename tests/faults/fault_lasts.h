#pragma once

namespace fiscalon {

/// Whether what fails once works again, or stays broken while the fault lasts.
enum class FaultLasts { Once, FromThenOn };

}  // namespace fiscalon
