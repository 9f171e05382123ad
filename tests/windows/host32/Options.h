#pragma once

#include <string>
#include <vector>

#include "windows/container/Meanness.h"

namespace quorvane::container {

/// In which way the container tells an add-in of its connection.
enum class ConnectBy { Vtable, Dispatch, OlderInterface };

/// The container's command line.
///
///     quorvane-host32 [--fresh] [--no-type-info] [--strict-lines] [--wrap-document] [--no-menu] [--fresh-active]
///                     [--one-class-id] [--other-points] [--no-bars] [--no-add-ins]
///                     [--connect-by vtable|dispatch|older] [--codepage NAME] [--connect MODE] [FILE…]
///
/// FILE are groups, projects or modules; without any the container opens a small group of its own. --connect MODE loads
/// the add-in at once, in that mode.
struct Options {
  Meanness meanness;
  ConnectBy connectBy = ConnectBy::Vtable;
  std::string codePage;  ///< empty: the system's ANSI code page
  int connectMode = -1;  ///< -1: not at once
  std::vector<std::string> files;

  /// Raises error 5 that names what it does not know.
  static Options Parse(int argc, wchar_t** argv);
};

}  // namespace quorvane::container
