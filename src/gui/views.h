#pragma once
// The views of the program's windows, by window name.
namespace tv::gui {

class ViewRegistry;

/// Registers the view of every window.
void register_views(ViewRegistry& registry);

// Each area registers the views of its windows.
void register_spectra_views(ViewRegistry& registry);
void register_fourier_views(ViewRegistry& registry);
void register_coefficient_views(ViewRegistry& registry);
void register_capacity_views(ViewRegistry& registry);
void register_measures_views(ViewRegistry& registry);

}  // namespace tv::gui
