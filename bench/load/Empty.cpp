// A library that takes nothing but the loading.
