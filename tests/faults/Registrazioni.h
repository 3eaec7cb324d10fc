// Small registrations over both databases, written through the store, and how to tell whether what
// is found is whole.
#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "core/store/BasiDati.h"

namespace fenalto::prova {

/// Version of each registration by its number.
using Registrate = std::map<int, int>;

/// Makes an empty company in `cartella` with the program's own schema; fails the test when it
/// can't.
PercorsiArchivi CreaDitta(const std::filesystem::path& cartella);
OpzioniApertura OpzioniDiProva(const std::string& stazione = "UFFICIO");

/// Writes version `versione` of registration `numero` and confirms it, in one transaction: its head
/// and rows in tessarc, its due dates in scadenzario. A version past the first replaces the one
/// before. Throws ErroreArchivio.
void Registra(BasiDati& basi, int numero, int versione);

/// What is registered. Adds to `guasti` a line for each registration that is half there, doesn't
/// balance or mixes versions.
Registrate Leggi(BasiDati& basi, std::string& guasti);

/// Has the engine look at every page and index of both databases; what it finds goes to `guasti`.
void ControllaFile(const PercorsiArchivi& percorsi, const std::string& vfs, std::string& guasti);

/// Value of an environment variable, or `altrimenti`.
long Ambiente(const char* nome, long altrimenti);
/// Whether the long runs were asked for (FENALTO_LUNGO=1).
bool Lungo();

}  // namespace fenalto::prova
