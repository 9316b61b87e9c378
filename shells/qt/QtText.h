// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <string>

namespace publishing {

// Any bytes as Qt can show them: what is not UTF-8, and zero bytes, become U+FFFD.
QString shownText(const std::string& text);

// The same for a button or a tab, where "&" would mark a mnemonic.
QString shownLabel(const std::string& text);

// The same as a tooltip, where what looks like markup would be taken for it; lines stay lines.
QString shownTooltip(const std::string& text);

// A label of ours, in which "_" stands before the mnemonic, as Qt marks it.
QString withMnemonic(const std::string& label);

// A label as the user reads it, without the mark.
QString withoutMnemonic(const QString& label);

}  // namespace publishing
