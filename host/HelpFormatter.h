#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace pedl {

/// Sets the command's help so that it stands in a terminal of 80 columns, or of as many as the
/// environment's COLUMNS tells. Paragraphs are filled;
/// lines that begin with a space are kept as they are, a table's or an example's, and broken where
/// they are too long: an example so that a shell still reads it.
class HelpFormatter : public CLI::Formatter {
public:
    HelpFormatter() { column_width(kNameColumns); }

    std::string make_description(const CLI::App* app) const override;
    std::string make_footer(const CLI::App* app) const override;
    std::string make_option_desc(const CLI::Option* option) const override;
    std::string make_subcommand(const CLI::App* command) const override;

private:
    static constexpr std::size_t kNameColumns = 30;
};

} // namespace pedl
