#pragma once
// The commands of tremorvault-cli; each returns the exit status.
#include <iosfwd>
#include <string>
#include <vector>

namespace tv::cli {

int run_spectra(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
int run_coefficient(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
int run_fourier(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
int run_nsp(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
int run_measures(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
int run_project(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
int run_capacity(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace tv::cli
