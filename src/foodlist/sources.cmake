list(APPEND MODEL_SOURCES
  src/foodlist/TierMap.cpp
)
