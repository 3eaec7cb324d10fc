// Generated companies with many customers, and with many purchase invoices.
#pragma once

#include <string>

#include "bench/GeneraDitta.h"

namespace fenalto::banco {

/// Makes a company with so many customers unless it is there.
void GeneraParti(const OpzioniAmbiente& opzioni, const std::string& nome, int clienti);

/// Register, payment code with two due dates, supplier and accounts of the generated invoices.
inline constexpr const char* kRegistroAcquisti = "3";
inline constexpr const char* kPagamentoDueRate = "XDUE";
inline constexpr const char* kFornitoreFatture = "00001";
inline constexpr int kAnnoFatture = 2024;
inline constexpr int kRigheImponibile = 4;
/// Companies of invoices that several measures share.
inline constexpr const char* kFattureMolte = "FattureMolte";
inline constexpr const char* kFattureDecima = "FattureDecima";
inline constexpr int kQuanteFatture = 100'000;

/// Makes a company with so many purchase invoices of kRigheImponibile taxable rows and two due
/// dates, in kAnnoFatture on kRegistroAcquisti, written by the program's own routines, unless it is
/// there.
void GeneraFatture(const OpzioniAmbiente& opzioni, const std::string& nome, int fatture);

}  // namespace fenalto::banco
