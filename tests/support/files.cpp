#include "support/files.h"

#include <unistd.h>

#include <fstream>
#include <random>
#include <sstream>

namespace tv::test {

std::string slurp(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

void spill(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::vector<std::string> lines_of(const std::filesystem::path& path) {
    std::ifstream in(path);
    std::vector<std::string> lines;
    for (std::string l; std::getline(in, l);) lines.push_back(l);
    return lines;
}

TempDir::TempDir() {
    std::random_device rd;
    path_ = std::filesystem::temp_directory_path() / ("tv-test-" + std::to_string(::getpid()) + "-" + std::to_string(rd()));
    std::filesystem::create_directories(path_);
}

TempDir::~TempDir() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

std::string TempDir::write(const std::string& name, const std::string& bytes) const {
    spill(path_ / name, bytes);
    return file(name);
}

const std::vector<std::pair<std::string, std::string>> kPeerConversions{
    {"RSN1633_MANJIL_ABBAR--L.AT2", "manjil1990_abbar_L.txt"},
    {"RSN1633_MANJIL_ABBAR--T.AT2", "manjil1990_abbar_T.txt"},
    {"RSN140_TABAS_FER-L1.AT2", "tabas1978_ferdows_L1.txt"},
    {"RSN140_TABAS_FER-T1.AT2", "tabas1978_ferdows_T1.txt"},
    {"elCentro.AT2", "imperialvalley1940_elcentro_NS.txt"},
    {"Rinaldi228.AT2", "northridge1994_rinaldi_228.txt"},
    {"Rinaldi318.AT2", "northridge1994_rinaldi_318.txt"},
    {"RSN1616_DUZCE_362-E.AT2", "duzce1999_lamont362_E.txt"},
    {"RSN1616_DUZCE_362-N.AT2", "duzce1999_lamont362_N.txt"},
    {"RSN1158_KOCAELI_DZC180.AT2", "kocaeli1999_duzce_180.txt"},
    {"RSN1158_KOCAELI_DZC270.AT2", "kocaeli1999_duzce_270.txt"},
    {"RSN787_LOMAP_SLC270.AT2", "lomaprieta1989_paloaltoslac_270.txt"},
    {"RSN787_LOMAP_SLC360.AT2", "lomaprieta1989_paloaltoslac_360.txt"},
    {"RSN1512_CHICHI_TCU078-E.AT2", "chichi1999_tcu078_E.txt"},
    {"RSN1512_CHICHI_TCU078-N.AT2", "chichi1999_tcu078_N.txt"},
};

}  // namespace tv::test
